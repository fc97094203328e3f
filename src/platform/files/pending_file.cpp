#include "platform/files/pending_file.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "platform/files/file_error.h"

namespace Morvane {

namespace {

constexpr int kHiddenNames = 1000;
constexpr mode_t kPermissions = 07777;

}  // namespace

PendingFile::PendingFile(const std::string& folder, std::string path)
    : folder_(folder), path_(std::move(path)) {
  for (int i = 0; i < kHiddenNames && !file_.IsOpen(); ++i) {
    native_ = folder_ + "/.morvane-" + std::to_string(::getpid()) + "-" + std::to_string(i);
    file_ =
        FileDescriptor(::open(native_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666));
    if (!file_.IsOpen() && errno != EEXIST) break;
  }
  if (!file_.IsOpen()) throw SystemFileError(errno, path_);
}

PendingFile::~PendingFile() {
  if (!native_.empty()) ::unlink(native_.c_str());
}

void PendingFile::Resemble(const struct stat& older) {
  // Some media know neither owners nor modes; the text is worth saving all the same. The owner goes first,
  // since a change of owner clears mode bits.
  const bool owned = ::fchown(file_.Get(), older.st_uid, older.st_gid) == 0;
  const mode_t mode = older.st_mode & (owned ? kPermissions : 0777U);
  static_cast<void>(::fchmod(file_.Get(), mode));
}

void PendingFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = TEMP_FAILURE_RETRY(::write(file_.Get(), bytes.data(), bytes.size()));
    if (count < 0) throw SystemFileError(errno, path_);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void PendingFile::Flush() {
  if (::fsync(file_.Get()) != 0) throw SystemFileError(errno, path_);
  if (::close(file_.Release()) != 0) throw SystemFileError(errno, path_);
}

void PendingFile::Replace(const std::string& name) {
  Flush();
  if (::rename(native_.c_str(), (folder_ + "/" + name).c_str()) != 0) throw SystemFileError(errno, path_);
  native_.clear();
  SyncFolder();
}

void PendingFile::TakeFreeName(const std::string& name) {
  Flush();
  const int error = RenameToFreeName(native_, folder_ + "/" + name);
  if (error != 0) throw SystemFileError(error, path_);
  native_.clear();
  SyncFolder();
}

void PendingFile::SyncFolder() {
  // The file has its name already; a medium that cannot flush a folder is no reason to report a failure.
  const FileDescriptor folder(::open((folder_ + "/").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.IsOpen()) ::fsync(folder.Get());
}

int RenameToFreeName(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // The medium cannot refuse by itself: a second name does, where it has such; else look first.
  if (::link(from.c_str(), to.c_str()) == 0) {
    if (::unlink(from.c_str()) == 0) return 0;
    const int error = errno;
    ::unlink(to.c_str());
    return error;
  }
  if (errno == EEXIST) return errno;
  struct stat info {};
  if (::lstat(to.c_str(), &info) == 0) return EEXIST;
  return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace Morvane
