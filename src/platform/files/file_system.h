#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Morvane {

// Type codes of drives.
enum class DriveType {
  Unknown = 0,
  NoRoot = 1,
  Removable = 2,
  Fixed = 3,
  Remote = 4,
  CdRom = 5,
  RamDisk = 6
};

// A text file read line by line. Lines end at CR or CR LF; a lone LF is part of a line.
class InputFile {
 public:
  virtual ~InputFile() = default;

  // The next line in UTF-8, read as Windows-1252, without its end; false at the end of the file.
  virtual bool ReadLine(std::string& line) = 0;
};

struct FolderEntries {
  std::vector<std::string> folders;  // names, links followed, hidden ones too
  std::vector<std::string> files;    // names of plain files, hidden ones too
};

// Drives, paths, folders and files. Paths have the Windows form ("C:\Dati\Foto.jpg", UTF-8); two backslashes
// in a row count as one, look-up ignores case, a path without a drive lies on C:. All names come
// alphabetically without regard to case. Failures are RuntimeError: PathNotFound, FileNotFound,
// PermissionDenied, PathFileAccess, FileAlreadyExists, DiskFull, BadFileName.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Roots of all drives in drive order, as "C:\".
  virtual std::vector<std::string> DriveRoots() const = 0;
  // `drive` is two characters, such as "C:". Asks the medium nothing.
  virtual DriveType TypeOfDrive(const std::string& drive) const = 0;
  // Label of a volume by its root; empty when it has none or holds no medium.
  virtual std::string VolumeLabel(const std::string& root) const = 0;

  // Names of the plain files of a folder that are not hidden.
  virtual std::vector<std::string> PlainFiles(const std::string& folder) const = 0;
  // Names of the folders in a folder, hidden ones too, without "." and "..".
  virtual std::vector<std::string> SubFolders(const std::string& folder) const = 0;
  // The first of them that `accept` takes; empty when none. Stops looking as early as it can.
  virtual std::string FirstSubFolder(const std::string& folder,
                                     const std::function<bool(const std::string&)>& accept) const = 0;
  // Everything of one folder in one reading.
  virtual FolderEntries ReadFolder(const std::string& folder) const = 0;

  // The same text for every path that leads to one folder, by links or not, and for no other. Where there are
  // no links a path is its own. RuntimeError as for reading the folder.
  virtual std::string FolderIdentity(const std::string& folder) const { return folder; }

  // A plain file stands at this path, hidden or not.
  virtual bool FileExists(const std::string& path) const = 0;
  virtual bool FolderExists(const std::string& path) const = 0;

  // Opens a text file for reading. Refused (PathFileAccess) also when the process has few file descriptors
  // left, so that files that are kept open cannot starve the rest of the program.
  virtual std::unique_ptr<InputFile> OpenForInput(const std::string& path) const = 0;
  // The whole file as it stands, for pictures.
  virtual std::string ReadBytes(const std::string& path) const = 0;
  // Replaces a text file as a whole or not at all: written beside the old one as Windows-1252 (a character
  // outside it as "?"), flushed to disk, renamed over it.
  virtual void WriteText(const std::string& path, const std::string& utf8) = 0;
  virtual void Kill(const std::string& path) = 0;
  // Renames or moves a file; never replaces one that exists.
  virtual void Name(const std::string& from, const std::string& to) = 0;

  // Makes the folder the current one of this process, so that no other is held by it.
  virtual void ChDir(const std::string& folder) = 0;

  // The user's desktop folder, Windows form.
  virtual std::string DesktopFolder() const = 0;
  // The path of this system for a Windows path, and back. FromNative gives an empty string for a path that
  // lies on no drive or has a backslash in a name.
  virtual std::string ToNative(const std::string& path) const = 0;
  virtual std::string FromNative(const std::string& nativePath) const = 0;
};

}  // namespace Morvane
