#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/old_formats/decoder.h"
#include "platform/old_formats/limits.h"
#include "platform/old_formats/lock_down.h"

namespace {

using namespace Morvane;

std::unique_ptr<Decoder> MakeDecoder(std::string_view format) {
  if (format == "emf") return MakeEmfDecoder();
  if (format == "wmf") return MakeWmfDecoder();
  if (format == "iff") return MakeIffDecoder();
  throw Undecodable("unknown format");
}

std::string ReadAll() {
  std::string bytes;
  std::array<char, 64 * 1024> block{};
  while (const std::size_t count = std::fread(block.data(), 1, block.size(), stdin)) {
    bytes.append(block.data(), count);
    if (bytes.size() > DecoderLimits::kFileBytes) throw Undecodable("too large");
  }
  if (std::ferror(stdin) != 0) throw Undecodable("not read");
  return bytes;
}

// The libraries print to standard output now and then; the picture goes where they can't reach it.
std::FILE* TakeStandardOutput() {
  std::FILE* const output = ::fdopen(::dup(STDOUT_FILENO), "w");
  if (output == nullptr || std::freopen("/dev/null", "w", stdout) == nullptr) throw Undecodable("no output");
  return output;
}

void Run(std::string_view format) {
  std::FILE* const output = TakeStandardOutput();
  const std::unique_ptr<Decoder> decoder = MakeDecoder(format);
  if (!LockDown()) throw Undecodable("not locked down");
  const std::string picture = decoder->Decode(ReadAll());
  const bool isWritten = std::fwrite(picture.data(), 1, picture.size(), output) == picture.size();
  if (!isWritten || std::fflush(output) != 0) throw Undecodable("not written");
  // The libraries' own clean-up may want more than the lock-down grants.
  std::_Exit(EXIT_SUCCESS);
}

}  // namespace

// morvane-decode emf|wmf|iff: reads a picture file on standard input and writes it decoded on standard
// output.
int main(int argc, char** argv) {
  try {
    if (argc == 2) Run(argv[1]);
  } catch (const std::exception&) {
  }
  std::_Exit(EXIT_FAILURE);
}
