#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

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

std::string ReadAll(int descriptor) {
  std::string bytes;
  std::vector<char> block(256 * 1024);
  while (true) {
    const ssize_t count = TEMP_FAILURE_RETRY(read(descriptor, block.data(), block.size()));
    if (count < 0) throw Undecodable("not read");
    if (count == 0) return bytes;
    bytes.append(block.data(), static_cast<size_t>(count));
    if (bytes.size() > DecoderLimits::kFileBytes) throw Undecodable("too large");
  }
}

void WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = TEMP_FAILURE_RETRY(write(descriptor, bytes.data(), bytes.size()));
    if (count < 0) throw Undecodable("not written");
    bytes.remove_prefix(static_cast<size_t>(count));
  }
}

// The libraries print to standard output now and then; the picture goes where they can't reach it.
int TakeStandardOutput() {
  const int output = dup(STDOUT_FILENO);
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (output < 0 || nowhere < 0 || dup2(nowhere, STDOUT_FILENO) < 0) throw Undecodable("no output");
  close(nowhere);
  return output;
}

void Run(std::string_view format) {
  const int output = TakeStandardOutput();
  const std::unique_ptr<Decoder> decoder = MakeDecoder(format);
  if (!LockDown()) throw Undecodable("not locked down");
  WriteAll(output, decoder->Decode(ReadAll(STDIN_FILENO)));
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
