#include <iostream>

#include "bench/photos/photo.h"

// decode_photos FILE...: decodes each to nowhere.
int main(int argc, char** argv) {
  std::size_t sum = 0;
  for (int i = 1; i < argc; ++i) sum += Morvane::DecodeToNowhere(argv[i]);
  std::cout << sum << '\n';
  return 0;
}
