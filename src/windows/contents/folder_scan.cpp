#include "windows/contents/folder_scan.h"

#include <algorithm>
#include <exception>
#include <unordered_map>
#include <utility>

#include "core/listing_font.h"
#include "platform/files/file_error.h"

namespace Morvane {

namespace {

constexpr const char* kBrowserTitle = "Apertura CD/Cartella da stampare";
constexpr const char* kTooManyFiles =
    "Numero massimo di files/cartelle visualizzabili : 1000, il programma ignorerà i files in piu'";

class FolderScan {
 public:
  FolderScan(AppState& state, Platform& platform, Listing& list, int limit)
      : state_(state), platform_(platform), list_(list), limit_(limit) {}

  void Run(const std::string& fold) {
    list_.Begin(fold);
    LinesOf(fold);
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  // Reached once more, by a link, a folder has the lines that it had the first time. They are nullptr while
  // it is still being read: so a link to a folder above it ends in a heading, and no walk is endless.
  const FolderBlock* LinesOf(const std::string& fold) {
    std::string identity;
    FolderEntries entries;
    try {
      identity = platform_.files.FolderIdentity(fold);
      const auto known = blocks_.find(identity);
      if (known != blocks_.end()) return known->second;
      entries = platform_.files.ReadFolder(fold);
    } catch (const RuntimeError&) {
      // A failure ends the scan in the way of the limit, so that the list keeps what was read before.
      failure_ = std::current_exception();
      return nullptr;
    }
    blocks_.emplace(identity, nullptr);
    FolderBlock& block = list_.NewBlock();
    ListEntries(fold, std::move(entries), block);
    return blocks_[identity] = &block;
  }

  void ListEntries(const std::string& fold, FolderEntries entries, FolderBlock& block) {
    for (const std::string& name : entries.folders) {
      block.AddSubFolder(name, LinesOf(PathBelow(fold, name)));
      if (Stopped()) return;
    }
    platform_.screen.SetMousePointer(MousePointer::Hourglass);
    // Every sub-folder is listed twice at each level. This is meant. The second time finds what the first one
    // found, so no limit is passed in it: the first time would have ended the scan there.
    block.RepeatSubFolders();
    if (!entries.folders.empty()) platform_.screen.SetMousePointer(MousePointer::Default);
    ListFiles(std::move(entries.files), block);
  }

  void ListFiles(std::vector<std::string> names, FolderBlock& block) {
    const auto listed = std::min(names.size(), static_cast<std::size_t>(limit_) + 1);
    names.resize(listed);
    block.AddFiles(std::move(names));
    state_.ElencoRighe = static_cast<std::int16_t>(listed);
    if (!Stopped()) return platform_.screen.SetMousePointer(MousePointer::Default);
    platform_.windows.MsgBox(kTooManyFiles);
  }

  bool Stopped() const { return failure_ || state_.ElencoRighe > limit_; }

  AppState& state_;
  Platform& platform_;
  Listing& list_;
  int limit_;
  std::unordered_map<std::string, const FolderBlock*> blocks_;
  std::exception_ptr failure_;
};

// As the folder itself tells its path: without a backslash at the end, unless it is a drive's root.
std::string FolderPath(std::string path) {
  while (path.size() > 3 && path.ends_with('\\')) path.pop_back();
  return path;
}

}  // namespace

const std::string& SfogliaCartella(std::string& percorso, WindowSystem& windows) {
  const std::string chosen = windows.BrowseForFolder(kBrowserTitle);
  if (!chosen.empty()) percorso = chosen;
  return percorso;
}

void Leggifile(AppState& state, Platform& platform, Listing& List1) {
  std::string percorso = "\\";
  state.CartellaElenco = SfogliaCartella(percorso, platform.windows);
  if (percorso == "\\") return;
  const std::string fold = FolderPath(percorso);
  if (!platform.files.FolderExists(fold)) throw FileError(ErrorNumber::PathNotFound, fold);
  // The disc that is read can be taken out afterwards: the process stands in no folder of it.
  platform.files.ChDir(platform.app.path);
  platform.screen.SetMousePointer(MousePointer::Hourglass);
  platform.windows.DoEvents();
  state.ElencoColonne = 2;
  List1.Clear();
  try {
    FindSubFolders(fold, state, platform, List1);
  } catch (const RuntimeError&) {
    platform.screen.SetMousePointer(MousePointer::Default);
    throw;
  }
}

void FindSubFolders(const std::string& fold, AppState& state, Platform& platform, Listing& List1, int limit) {
  if (state.ElencoRighe > limit) return;
  RepairListingFont(state);
  state.ElencoColonne = 2;
  FolderScan(state, platform, List1, limit).Run(fold);
}

}  // namespace Morvane
