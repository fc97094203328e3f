#pragma once

#include <string>

#include "platform/files/file_system.h"
#include "platform/files/folder_reader.h"
#include "platform/files/mount_table.h"
#include "platform/files/path_mapping.h"

namespace Morvane {

// The files of this machine.
class LocalFileSystem : public FileSystem {
 public:
  // `root` is the native folder that stands for "/", `desktopFolder` the native path of the user's desktop.
  LocalFileSystem(std::string root, MountTable mounts, std::string desktopFolder);

  std::vector<std::string> DriveRoots() const override;
  DriveType TypeOfDrive(const std::string& drive) const override;
  std::string VolumeLabel(const std::string& root) const override;

  std::vector<std::string> PlainFiles(const std::string& folder) const override;
  std::vector<std::string> SubFolders(const std::string& folder) const override;
  std::string FirstSubFolder(const std::string& folder,
                             const std::function<bool(const std::string&)>& accept) const override;
  FolderEntries ReadFolder(const std::string& folder) const override;
  std::string FolderIdentity(const std::string& folder) const override;

  bool FileExists(const std::string& path) const override;
  bool FolderExists(const std::string& path) const override;

  std::unique_ptr<InputFile> OpenForInput(const std::string& path) const override;
  std::string ReadBytes(const std::string& path) const override;
  void WriteText(const std::string& path, const std::string& utf8) override;
  void Kill(const std::string& path) override;
  void Name(const std::string& from, const std::string& to) override;

  void ChDir(const std::string& folder) override;
  std::string DesktopFolder() const override;
  std::string ToNative(const std::string& path) const override;
  std::string FromNative(const std::string& nativePath) const override;

 private:
  FolderReader OpenFolder(const std::string& folder) const;

  PathMapping paths_;
  std::string desktopFolder_;
};

}  // namespace Morvane
