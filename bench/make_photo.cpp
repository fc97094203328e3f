#include <iostream>

#include "bench/photos/photo.h"

// make_photo MEGAPIXELS SEED FILE
int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const Morvane::PhotoSize size = Morvane::PhotoOf(std::stod(argv[1]));
  Morvane::WritePhoto(argv[3], size, static_cast<std::uint32_t>(std::stoul(argv[2])));
  return 0;
}
