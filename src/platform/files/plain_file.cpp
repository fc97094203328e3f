#include "platform/files/plain_file.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

#include "platform/files/file_error.h"
#include "platform/windows_1252.h"

namespace Morvane {

namespace {

constexpr std::size_t kLargestFile = 512U * 1024U * 1024U;
constexpr std::size_t kChunk = 16U * 1024U;
constexpr rlim_t kReservedDescriptors = 256;

// Appends up to `most` bytes to `bytes`; false at the end of the file.
bool AppendFrom(int descriptor, std::size_t most, std::string& bytes, const std::string& path) {
  const std::size_t before = bytes.size();
  bytes.resize(before + most);
  const ssize_t count = TEMP_FAILURE_RETRY(::read(descriptor, bytes.data() + before, most));
  if (count < 0) throw SystemFileError(errno, path);
  bytes.resize(before + static_cast<std::size_t>(count));
  return count > 0;
}

bool FewDescriptorsLeft(int descriptor) {
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return false;
  const rlim_t reserved = std::min(kReservedDescriptors, limit.rlim_cur / 2);
  return static_cast<rlim_t>(descriptor) + reserved >= limit.rlim_cur;
}

}  // namespace

FileDescriptor OpenPlainFile(const std::string& native, const std::string& path) {
  struct stat info {};
  if (::stat(native.c_str(), &info) != 0) throw SystemFileError(errno, path);
  if (!S_ISREG(info.st_mode)) throw FileError(ErrorNumber::PathFileAccess, path);
  FileDescriptor file(::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  if (!file.IsOpen()) throw SystemFileError(errno, path);
  return file;
}

std::string ReadPlainFile(const std::string& native, const std::string& path) {
  const FileDescriptor file = OpenPlainFile(native, path);
  struct stat info {};
  if (::fstat(file.Get(), &info) != 0) throw SystemFileError(errno, path);
  const auto size = static_cast<std::size_t>(info.st_size);
  if (size > kLargestFile) throw FileError(ErrorNumber::OutOfMemory, path);
  std::string bytes;
  bytes.reserve(size + kChunk);
  // The size is only a hint: some file systems tell none, and the file may be growing.
  for (std::size_t most = size + 1; AppendFrom(file.Get(), most, bytes, path); most = kChunk) {
    if (bytes.size() > kLargestFile) throw FileError(ErrorNumber::OutOfMemory, path);
  }
  return bytes;
}

InputFile::InputFile(const std::string& native, std::string path, FileHook beforeCall)
    : file_(OpenPlainFile(native, path)), path_(std::move(path)), beforeCall_(std::move(beforeCall)) {
  if (FewDescriptorsLeft(file_.Get())) throw FileError(ErrorNumber::TooManyFiles, path_);
}

bool InputFile::ReadLine(std::string& line) {
  if (beforeCall_) beforeCall_("ReadLine", path_);
  std::string bytes;
  bool any = false;
  while (Fill()) {
    any = true;
    const std::string_view rest = std::string_view(buffer_).substr(next_);
    const std::size_t end = rest.find('\r');
    bytes += rest.substr(0, end);
    if (end != std::string_view::npos) {
      next_ += end + 1;
      if (Fill() && buffer_[next_] == '\n') ++next_;
      break;
    }
    next_ = buffer_.size();
  }
  if (any) line = FromWindows1252(bytes);
  return any;
}

// Makes sure that a byte is at hand; false at the end of the file. The buffer goes then: the handle may stay.
bool InputFile::Fill() {
  if (next_ < buffer_.size()) return true;
  if (atEnd_) return false;
  buffer_.clear();
  next_ = 0;
  atEnd_ = !AppendFrom(file_.Get(), kChunk, buffer_, path_);
  if (atEnd_) std::string().swap(buffer_);
  return !atEnd_;
}

}  // namespace Morvane
