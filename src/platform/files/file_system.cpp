#include "platform/files/file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/files/file_error.h"
#include "platform/files/folder_entries.h"
#include "platform/files/name_order.h"
#include "platform/files/pending_file.h"
#include "platform/windows_1252.h"

namespace Morvane {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kWriteBits = 0222;

// What is known of a plain file that may be written. A file without any write permission counts as read-only,
// even for the superuser.
struct stat WritablePlainFile(const std::string& native, const std::string& path) {
  struct stat info {};
  if (::stat(native.c_str(), &info) != 0) throw SystemFileError(errno, path);
  const bool writable =
      (info.st_mode & kWriteBits) != 0 && ::faccessat(AT_FDCWD, native.c_str(), W_OK, AT_EACCESS) == 0;
  if (!S_ISREG(info.st_mode) || !writable) throw FileError(ErrorNumber::PathFileAccess, path);
  return info;
}

fs::path ResolveLinks(const std::string& native, const std::string& path) {
  std::error_code error;
  const fs::path resolved = fs::canonical(native, error);
  if (error) throw SystemFileError(error.value(), path);
  return resolved;
}

void ReplaceText(const std::string& native, const std::string& bytes, const std::string& path) {
  const fs::path real = ResolveLinks(native, path);
  const struct stat older = WritablePlainFile(real, path);
  PendingFile file(real.parent_path(), path);
  file.Resemble(older);
  file.Write(bytes);
  file.Replace(real.filename());
}

std::string ExistingFolder(const PathMapping& paths, const std::string& folder) {
  const auto native = paths.Find(folder, Wanted::Folder);
  if (!native) throw FileError(ErrorNumber::PathNotFound, folder);
  return *native;
}

std::string NameOf(const FolderEntry& entry) {
  return ReadableUtf8(entry.name);
}

// The names that `accept` takes. A medium that fails in the middle of a folder has no more of them.
std::vector<std::string> SortedNames(const std::string& native, const std::string& folder,
                                     bool (*accept)(const FolderEntry&)) {
  std::vector<std::string> names;
  std::size_t seen = 0;
  try {
    VisitFolder(native, folder, [&](const FolderEntry& entry) {
      ++seen;
      if (accept(entry)) names.push_back(NameOf(entry));
      return true;
    });
  } catch (const RuntimeError&) {
    if (seen == 0) throw;
  }
  SortNames(names);
  return names;
}

void MoveToOtherVolume(const std::string& native, const PathTarget& target, const std::string& path) {
  struct stat info {};
  if (::lstat(native.c_str(), &info) != 0) throw SystemFileError(errno, path);
  if (!S_ISREG(info.st_mode)) throw FileError(ErrorNumber::PathFileAccess, path);
  const FileDescriptor source = OpenPlainFile(native, path);
  PendingFile copy(target.folder, path);
  copy.Resemble(info);
  std::array<char, 64 * 1024> chunk{};
  ssize_t count = 0;
  while ((count = ::read(source.Get(), chunk.data(), chunk.size())) > 0) {
    copy.Write({chunk.data(), static_cast<std::size_t>(count)});
  }
  if (count < 0) throw SystemFileError(errno, path);
  copy.TakeFreeName(target.name);
  if (::unlink(native.c_str()) == 0) return;
  const int error = errno;
  ::unlink(target.NativePath().c_str());
  throw SystemFileError(error, path);
}

}  // namespace

FileSystem::FileSystem(std::string root, MountTable mounts, std::string desktopFolder)
    : paths_(std::move(root), std::move(mounts)), desktopFolder_(std::move(desktopFolder)) {}

void FileSystem::BeginCall(const char* call, const std::string& path) const {
  if (BeforeCall) BeforeCall(call, path);
}

std::vector<std::string> FileSystem::DriveRoots() const {
  BeginCall("DriveRoots");
  std::vector<std::string> roots;
  for (const Volume& volume : paths_.CurrentVolumes()) {
    roots.push_back(std::string(1, volume.letter) + ":\\");
  }
  return roots;
}

DriveType FileSystem::TypeOfDrive(const std::string& drive) const {
  BeginCall("TypeOfDrive", drive);
  const auto volume = paths_.VolumeOf(drive);
  return volume ? volume->type : DriveType::NoRoot;
}

std::string FileSystem::VolumeLabel(const std::string& root) const {
  BeginCall("VolumeLabel", root);
  const auto volume = paths_.VolumeOf(root);
  return volume ? paths_.Label(*volume) : "";
}

std::vector<std::string> FileSystem::PlainFiles(const std::string& folder) const {
  BeginCall("PlainFiles", folder);
  return SortedNames(ExistingFolder(paths_, folder), folder, [](const FolderEntry& entry) {
    return !entry.name.starts_with('.') && entry.Kind() == EntryKind::File;
  });
}

std::vector<std::string> FileSystem::SubFolders(const std::string& folder) const {
  BeginCall("SubFolders", folder);
  return SortedNames(ExistingFolder(paths_, folder), folder,
                     [](const FolderEntry& entry) { return entry.Kind() == EntryKind::Folder; });
}

std::string FileSystem::FirstSubFolder(const std::string& folder,
                                       const std::function<bool(const std::string&)>& accept) const {
  BeginCall("FirstSubFolder", folder);
  std::string first;
  VisitFolder(ExistingFolder(paths_, folder), folder, [&](const FolderEntry& entry) {
    if (entry.Kind() == EntryKind::Folder && accept(NameOf(entry))) first = NameOf(entry);
    return first.empty();
  });
  return first;
}

FolderEntries FileSystem::ReadFolder(const std::string& folder) const {
  BeginCall("ReadFolder", folder);
  FolderEntries entries;
  entries.leftOut = VisitFolder(ExistingFolder(paths_, folder), folder, [&](const FolderEntry& entry) {
    const EntryKind kind = entry.Kind();
    if (kind == EntryKind::Folder) entries.folders.push_back(NameOf(entry));
    if (kind == EntryKind::File) entries.files.push_back(NameOf(entry));
    return true;
  });
  SortNames(entries.folders);
  SortNames(entries.files);
  return entries;
}

std::string FileSystem::FolderIdentity(const std::string& folder) const {
  BeginCall("FolderIdentity", folder);
  return ResolveLinks(ExistingFolder(paths_, folder), folder);
}

bool FileSystem::FileExists(const std::string& path) const {
  BeginCall("FileExists", path);
  const auto native = paths_.Find(path, Wanted::Anything);
  std::error_code unknown;  // then it is none
  return native && fs::is_regular_file(*native, unknown);
}

bool FileSystem::FolderExists(const std::string& path) const {
  BeginCall("FolderExists", path);
  return paths_.Find(path, Wanted::Folder).has_value();
}

std::unique_ptr<InputFile> FileSystem::OpenForInput(const std::string& path) const {
  BeginCall("OpenForInput", path);
  return std::make_unique<InputFile>(paths_.Existing(path), path, BeforeCall);
}

std::string FileSystem::ReadBytes(const std::string& path) const {
  BeginCall("ReadBytes", path);
  return ReadPlainFile(paths_.Existing(path), path);
}

void FileSystem::WriteText(const std::string& path, const std::string& utf8) {
  BeginCall("WriteText", path);
  const PathTarget target = paths_.Target(path);
  const std::string bytes = ToWindows1252(utf8);
  if (target.existing) {
    ReplaceText(target.NativePath(), bytes, path);
    return;
  }
  PendingFile file(target.folder, path);
  file.Write(bytes);
  file.TakeFreeName(target.name);
}

void FileSystem::Kill(const std::string& path) {
  BeginCall("Kill", path);
  const std::string native = paths_.Existing(path);
  std::error_code unknown;
  const bool leadsNowhere = !fs::exists(native, unknown);
  if (!leadsNowhere) WritablePlainFile(native, path);
  if (::unlink(native.c_str()) != 0) throw SystemFileError(errno, path);
}

void FileSystem::Name(const std::string& from, const std::string& to) {
  BeginCall("Name", from);
  const std::string native = paths_.Existing(from);
  const PathTarget target = paths_.Target(to);
  const bool toItself = target.existing && target.NativePath() == native;
  if (target.existing && !toItself) throw FileError(ErrorNumber::FileAlreadyExists, to);
  const std::string renamed = target.folder + "/" + target.name;
  if (toItself) {
    if (::rename(native.c_str(), renamed.c_str()) != 0) throw SystemFileError(errno, to);
    return;
  }
  const int error = RenameToFreeName(native, renamed);
  if (error == EXDEV) {
    MoveToOtherVolume(native, target, to);
  } else if (error != 0) {
    throw SystemFileError(error, to);
  }
}

void FileSystem::ChDir(const std::string& folder) {
  BeginCall("ChDir", folder);
  if (::chdir(ExistingFolder(paths_, folder).c_str()) != 0) throw SystemFileError(errno, folder);
}

std::string FileSystem::DesktopFolder() const {
  BeginCall("DesktopFolder");
  return paths_.FromNative(desktopFolder_);
}

std::string FileSystem::ToNative(const std::string& path) const {
  BeginCall("ToNative", path);
  return paths_.ToNative(path);
}

std::string FileSystem::FromNative(const std::string& nativePath) const {
  BeginCall("FromNative", nativePath);
  return paths_.FromNative(nativePath);
}

}  // namespace Morvane
