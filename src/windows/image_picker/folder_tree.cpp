#include "windows/image_picker/folder_tree.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/resume_next.h"
#include "platform/text.h"

namespace Morvane {

namespace {

constexpr const char* kComputerImage = "desktop";

std::string WithoutBackslash(std::string path) {
  if (path.ends_with('\\')) path.pop_back();
  return path;
}

// The path in the letters of the disk. Keys are in proper case: each folder below one would else be searched
// for among all its neighbours.
std::string PathOnDisk(const std::string& path, const FileSystem& files) {
  std::string found;
  ResumeNext([&] { found = files.FromNative(files.ToNative(path)); });
  return WithoutBackslash(found.empty() ? path : found);
}

// A folder that is in the tree already is refused; its selected image then goes to the node added last.
void AddFolder(TreeView& tree, const std::string& parentKey, const std::string& name) {
  ResumeNext([&] { tree.Add(parentKey, parentKey + "\\" + name, name, "closed"); });
  ResumeNext([&] { tree.Node(tree.NodeCount()).SetSelectedImage("open"); });
}

void AddPlaceholder(TreeView& tree, const std::string& key, const std::string& pathOnDisk,
                    const FileSystem& files) {
  const std::string name = FirstSubFolder(pathOnDisk, files);
  if (!name.empty()) AddFolder(tree, key, name);
}

// A name that begins with a point is hidden on this system.
bool IsShown(const std::string& folder) {
  return !folder.starts_with('.');
}

struct DriveLook {
  std::string text;
  std::string image;
  bool hasPlaceholder = false;
};

DriveLook LookOfDrive(const std::string& drive, DriveType type, const std::string& imageBefore,
                      const FileSystem& files) {
  const std::string inBrackets = "(" + drive + ")";
  const auto labelled = [&](const char* image) {
    return DriveLook{GetVolumeLabel(drive + "\\", files) + " " + inBrackets, image, true};
  };
  switch (type) {
    case DriveType::NoRoot:
    case DriveType::Fixed:
      return labelled("hard");
    case DriveType::Remote:
      return labelled("net");
    case DriveType::CdRom:
      return labelled("cdrom");
    case DriveType::Removable:
      return {"Floppy " + inBrackets, "floppy", false};
    default:
      return {inBrackets, imageBefore, false};
  }
}

// Returns the first fixed drive. A removable drive is asked for nothing but its type: no wait for a medium.
std::string AddDrives(TreeView& tree, const FileSystem& files) {
  std::vector<std::string> roots;
  ResumeNext([&] { roots = files.DriveRoots(); });
  std::string firstFixed;
  std::string image = kComputerImage;
  for (const std::string& root : roots) {
    const std::string drive = ToUpper(WithoutBackslash(root));
    DriveType type = DriveType::Unknown;
    ResumeNext([&] { type = files.TypeOfDrive(drive); });
    const DriveLook look = LookOfDrive(drive, type, image, files);
    image = look.image;
    if (firstFixed.empty() && (type == DriveType::Fixed || type == DriveType::NoRoot)) firstFixed = drive;
    ResumeNext([&] { tree.Add("root", drive, look.text, image); });
    if (look.hasPlaceholder) AddPlaceholder(tree, drive, drive, files);
  }
  return firstFixed;
}

// Without a placeholder: what the desktop folder holds is shown below its drive alone, where it has another
// node. So its key ends in a backslash, as no other does.
void AddDesktopFolder(TreeView& tree, const std::string& path, const FileSystem& files) {
  bool isThere = false;
  ResumeNext([&] { isThere = !path.empty() && files.FolderExists(path); });
  if (!isThere) return;
  const std::string name = path.substr(path.rfind('\\') + 1);
  if (name.empty()) return;  // no folder, but a drive
  ResumeNext([&] { tree.Add("desk", path + "\\", ProperCase(name), "closed"); });
}

}  // namespace

std::string BuildTree(TreeView& tree, AppState& state, Screen& screen, const FileSystem& files,
                      const std::function<void()>& loadContentsWindow) {
  const BusyPointer busy(screen, MousePointer::ArrowHourglass);
  ResumeNext([&] { tree.Add("", "desk", "Desktop", "desk"); });
  ResumeNext([&] { tree.Add("desk", "root", GetMyComputerName(), kComputerImage); });
  const std::string firstFixed = AddDrives(tree, files);
  ResumeNext([&] { loadContentsWindow(); });
  ResumeNext([&] { state.CartellaDesktop = files.DesktopFolder(); });
  AddDesktopFolder(tree, state.CartellaDesktop, files);
  // The first drive's placeholder, or the second drive.
  ResumeNext([&] { tree.EnsureVisible(tree.Node(4)); });
  return firstFixed;
}

void AddSubFolders(TreeView& tree, const std::string& key, const FileSystem& files,
                   std::deque<UnreadFolder>& unread) {
  if (key.empty()) return;
  const std::string parentKey = WithoutBackslash(key);
  const std::string onDisk = PathOnDisk(parentKey, files);
  std::vector<std::string> folders;
  ResumeNext([&] { folders = files.SubFolders(onDisk + "\\"); });
  std::erase_if(folders, [](const std::string& folder) { return !IsShown(folder); });
  std::erase_if(unread, [&](const UnreadFolder& folder) { return folder.parentKey == parentKey; });
  for (auto folder = folders.begin(); folder != folders.end();) {
    const std::string name = ProperCase(*folder);
    const auto next =
        std::find_if(folder, folders.end(), [&](const auto& other) { return ProperCase(other) != name; });
    // Folders that differ in case alone are one node, which leads to the one written as its key, else to the
    // first.
    const auto exact = std::find(folder, next, name);
    AddFolder(tree, parentKey, name);
    unread.push_back({parentKey, name, onDisk + "\\" + (exact != next ? *exact : *folder)});
    folder = next;
  }
}

void AddPlaceholders(TreeView& tree, const FileSystem& files, std::deque<UnreadFolder>& unread,
                     std::chrono::steady_clock::time_point until) {
  while (!unread.empty() && std::chrono::steady_clock::now() < until) {
    const UnreadFolder folder = std::move(unread.front());
    unread.pop_front();
    AddPlaceholder(tree, folder.parentKey + "\\" + folder.name, folder.pathOnDisk, files);
  }
}

std::string FirstSubFolder(const std::string& path, const FileSystem& files) {
  if (path.empty()) return {};
  std::string name;
  // A folder named exactly "desk", as the Desktop's node is, is passed over here and only here: alone in its
  // folder, it can't be reached.
  const auto accept = [](const std::string& folder) { return IsShown(folder) && folder != "desk"; };
  ResumeNext([&] { name = files.FirstSubFolder(WithoutBackslash(path) + "\\", accept); });
  return ProperCase(name);
}

std::string GetVolumeLabel(const std::string& root, const FileSystem& files) {
  std::string label;
  ResumeNext([&] { label = files.VolumeLabel(root); });
  return ProperCase(label);
}

std::string GetMyComputerName() {
  return "Risorse del computer";
}

}  // namespace Morvane
