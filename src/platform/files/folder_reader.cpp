#include "platform/files/folder_reader.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <string_view>
#include <utility>

#include "platform/files/file_error.h"
#include "platform/windows_1252.h"

namespace Morvane {

FolderReader::FolderReader(FileDescriptor folder, std::string path)
    : path_(std::move(path)), folder_(::fdopendir(folder.Get())) {
  if (!folder_) throw SystemFileError(errno, path_);
  folder.Release();
}

bool FolderReader::Next() {
  while (true) {
    errno = 0;
    entry_ = ::readdir(folder_.get());
    if (entry_ == nullptr && errno != 0) throw SystemFileError(errno, path_);
    if (entry_ == nullptr) return false;
    const std::string_view name = entry_->d_name;
    const bool cannotBeTold = name.find('\\') != std::string_view::npos;
    if (cannotBeTold) ++leftOut_;
    if (name != "." && name != ".." && !cannotBeTold) return true;
  }
}

std::string FolderReader::Name() const {
  return ReadableUtf8(entry_->d_name);
}

EntryKind FolderReader::Kind() const {
  if (entry_->d_type == DT_REG) return EntryKind::File;
  if (entry_->d_type == DT_DIR) return EntryKind::Folder;
  struct stat info {};
  if (::fstatat(::dirfd(folder_.get()), entry_->d_name, &info, 0) != 0) return EntryKind::Other;
  if (S_ISDIR(info.st_mode)) return EntryKind::Folder;
  return S_ISREG(info.st_mode) ? EntryKind::File : EntryKind::Other;
}

}  // namespace Morvane
