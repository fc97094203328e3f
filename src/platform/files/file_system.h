#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/files/mount_table.h"
#include "platform/files/path_mapping.h"
#include "platform/files/plain_file.h"

namespace Morvane {

struct FolderEntries {
  std::vector<std::string> folders;  // names, links followed, hidden ones too
  std::vector<std::string> files;    // names of plain files, hidden ones too
  std::size_t leftOut = 0;           // those whose names hold a backslash
};

// Drives, paths, folders and files of this machine. Paths have the Windows form ("C:\Dati\Foto.jpg", UTF-8);
// two backslashes in a row count as one, look-up ignores case, a path without a drive lies on C:, which is
// the user's home. All names come alphabetically without regard to case. Failures are RuntimeError:
// PathNotFound, FileNotFound, PermissionDenied, PathFileAccess, FileAlreadyExists, DiskFull, TooManyFiles,
// BadFileName.
class FileSystem {
 public:
  // `root` is the native folder that stands for "/", `desktopFolder` the native path of the user's desktop.
  FileSystem(std::string root, MountTable mounts, std::string desktopFolder);

  // Told of each call before it is made: its name and its first path. It may wait, as a slow disk does, and
  // what it throws is the call's failure.
  FileHook BeforeCall;

  // Roots of all drives in drive order, as "C:\".
  std::vector<std::string> DriveRoots() const;
  // `drive` is two characters, such as "C:". Asks the medium nothing.
  DriveType TypeOfDrive(const std::string& drive) const;
  // Label of a volume by its root; empty when it has none or holds no medium.
  std::string VolumeLabel(const std::string& root) const;

  // Names of the plain files of a folder that are not hidden. Where its medium fails in the middle, those
  // found before.
  std::vector<std::string> PlainFiles(const std::string& folder) const;
  // Names of the folders in a folder, hidden ones too, without "." and ".."; as above where its medium fails.
  std::vector<std::string> SubFolders(const std::string& folder) const;
  // The first of them that the disk tells and `accept` takes; empty when none.
  std::string FirstSubFolder(const std::string& folder,
                             const std::function<bool(const std::string&)>& accept) const;
  // Everything of one folder in one reading.
  FolderEntries ReadFolder(const std::string& folder) const;

  // The same text for every path that leads to one folder, by links or not, and for no other. RuntimeError as
  // for reading the folder.
  std::string FolderIdentity(const std::string& folder) const;

  // A plain file stands at this path, hidden or not.
  bool FileExists(const std::string& path) const;
  bool FolderExists(const std::string& path) const;

  // Opens a text file for reading. Refused (TooManyFiles) also when the process has few file descriptors
  // left, so that files that are kept open cannot starve the rest of the program.
  std::unique_ptr<InputFile> OpenForInput(const std::string& path) const;
  // The whole file as it stands, for pictures.
  std::string ReadBytes(const std::string& path) const;
  // Replaces a text file as a whole or not at all: written beside the old one as Windows-1252 (a character
  // outside it as "?"), flushed to disk, renamed over it.
  void WriteText(const std::string& path, const std::string& utf8);
  void Kill(const std::string& path);
  // Renames or moves a file; never replaces one that exists.
  void Name(const std::string& from, const std::string& to);

  // Makes the folder the current one of this process, so that no other is held by it.
  void ChDir(const std::string& folder);

  // The user's desktop folder, Windows form.
  std::string DesktopFolder() const;
  // The path of this system for a Windows path, and back. FromNative gives an empty string for a path that
  // lies on no drive or has a backslash in a name.
  std::string ToNative(const std::string& path) const;
  std::string FromNative(const std::string& nativePath) const;

 private:
  void BeginCall(const char* call, const std::string& path = {}) const;

  PathMapping paths_;
  std::string desktopFolder_;
};

}  // namespace Morvane
