// Locks itself down as the decoder does, then does what its argument names; ends with 0 if that was let
// through.

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/old_formats/lock_down.h"

namespace {

void Answer(std::string_view text) {
  if (write(STDOUT_FILENO, text.data(), text.size()) < 0) std::_Exit(EXIT_FAILURE);
}

[[noreturn]] void LoopForEver() {
  for (volatile unsigned turns = 0;;) turns = turns + 1;
}

void TakeMemory() {
  std::vector<std::unique_ptr<char[]>> held;
  while (held.size() < 64) held.push_back(std::make_unique_for_overwrite<char[]>(std::size_t{64} << 20));
}

void Misbehave(std::string_view deed) {
  char name[] = "/bin/true";
  char* const arguments[] = {name, nullptr};
  if (deed == "read-file") open("/etc/hostname", O_RDONLY);
  if (deed == "write-file") open("misbehaving_decoder.txt", O_WRONLY | O_CREAT, 0600);
  if (deed == "socket") socket(AF_INET, SOCK_STREAM, 0);
  if (deed == "fork") fork();
  if (deed == "exec") execv(name, arguments);
  if (deed == "run-memory") mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (deed == "loop") LoopForEver();
  if (deed == "memory") TakeMemory();
  if (deed == "flood") {
    while (true) Answer("flood ");
  }
  if (deed == "crash") std::abort();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 || !Morvane::LockDown()) return EXIT_FAILURE;
  Misbehave(argv[1]);
  Answer("let through");
  std::_Exit(EXIT_SUCCESS);
}
