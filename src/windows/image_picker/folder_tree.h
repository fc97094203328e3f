#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <string>

#include "core/app_state.h"
#include "platform/controls/screen.h"
#include "platform/controls/tree_view.h"
#include "platform/files/file_system.h"

namespace Morvane {

// Fills an empty tree: the Desktop, below it My Computer with the drives and the user's desktop folder, whose
// path goes to CartellaDesktop. Opens the first drive. `loadContentsWindow` is called once, where the
// contents window has to be there. Returns the first fixed drive ("C:"), or an empty text. What fails is left
// out.
std::string BuildTree(TreeView& tree, AppState& state, Screen& screen, const FileSystem& files,
                      const std::function<void()>& loadContentsWindow);

// A folder of the tree that was not looked into: whether it has folders, its node doesn't show yet.
struct UnreadFolder {
  std::string parentKey;
  std::string name;
  std::string pathOnDisk;
};

// Adds the folders of a node by its key, in one reading, and puts them behind the `unread` ones. Those whose
// names begin with a point are not shown. Folders that are in the tree already stay as they are; none is ever
// taken out.
void AddSubFolders(TreeView& tree, const std::string& key, const FileSystem& files,
                   std::deque<UnreadFolder>& unread);

// Gives each unread folder its first subfolder, so that it shows the button that opens it; in turn, each with
// a reading of its own, until all are read or the time has come.
void AddPlaceholders(TreeView& tree, const FileSystem& files, std::deque<UnreadFolder>& unread,
                     std::chrono::steady_clock::time_point until);

// Name, in proper case, of the first shown subfolder that the disk tells; empty when there is none or the
// folder can't be read.
std::string FirstSubFolder(const std::string& path, const FileSystem& files);

// Label of a volume in proper case by its root ("C:\"); empty when it has none or holds no medium.
std::string GetVolumeLabel(const std::string& root, const FileSystem& files);

// What this system calls the node above the drives.
std::string GetMyComputerName();

}  // namespace Morvane
