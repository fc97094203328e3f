#include "windows/contents/folder_scan.h"

#include <unordered_map>
#include <vector>

#include "core/listing_font.h"
#include "platform/files/file_error.h"

namespace Morvane {

namespace {

constexpr const char* kBrowserTitle = "Apertura CD/Cartella da stampare";
constexpr const char* kTooManyFiles =
    "Numero massimo di files/cartelle visualizzabili : 1000, il programma ignorerà i files in piu'";
constexpr const char* kLeftOut =
    "File e cartelle esclusi dall'elenco, perché il loro nome contiene una barra rovesciata: ";

// The path of something in a folder; a drive's root brings its own backslash.
std::string PathBelow(const std::string& folder, const std::string& name) {
  return folder.ends_with('\\') ? folder + name : folder + '\\' + name;
}

class FolderScan {
 public:
  FolderScan(AppState& state, const FileSystem& files, const ScanReports& reports, Listing& list, int limit)
      : state_(state), files_(files), reports_(reports), list_(list), limit_(limit) {}

  // Reached once more, by a link, a folder has the lines that it had the first time. It has none while it is
  // still being read: so a link to a folder above it ends in a heading, and no walk is endless.
  void List(const std::string& fold) {
    const std::string identity = files_.FolderIdentity(fold);
    const auto known = read_.find(identity);
    if (known != read_.end()) return list_.Repeat(known->second.lines, known->second.path, fold);
    const FolderEntries entries = files_.ReadFolder(fold);
    leftOut_ += entries.leftOut;
    read_[identity] = {fold, {}};
    const LineCount first = list_.ListCount();
    ListEntries(fold, entries);
    read_[identity].lines = {first, list_.ListCount()};
  }

  void TellWhatIsLeftOut() const {
    if (leftOut_ > 0) reports_.message(kLeftOut + std::to_string(leftOut_));
  }

 private:
  struct ReadFolder {
    std::string path;
    Listing::Range lines;
  };

  void ListEntries(const std::string& fold, const FolderEntries& entries) {
    std::vector<ReadFolder> inside;
    for (const std::string& name : entries.folders) {
      const std::string path = PathBelow(fold, name);
      list_.Add("(" + path + ")");
      const LineCount first = list_.ListCount();
      List(path);
      if (state_.ElencoRighe > limit_) return;
      inside.push_back({path, {first, list_.ListCount()}});
    }
    reports_.pointer(MousePointer::Hourglass);
    // The second reading of each sub-folder, without headings, finds what the first one found: lists keep
    // their lines, and so their breaks.
    for (const ReadFolder& folder : inside) list_.Repeat(folder.lines, folder.path, folder.path);
    if (!entries.folders.empty()) reports_.pointer(MousePointer::Default);
    ListFiles(fold, entries.files);
  }

  void ListFiles(const std::string& fold, const std::vector<std::string>& names) {
    state_.ElencoRighe = 0;
    for (const std::string& name : names) {
      list_.Add(PathBelow(fold, name));
      if (++state_.ElencoRighe > limit_) {
        reports_.message(kTooManyFiles);
        return;
      }
    }
    reports_.pointer(MousePointer::Default);
  }

  AppState& state_;
  const FileSystem& files_;
  const ScanReports& reports_;
  Listing& list_;
  int limit_;
  std::size_t leftOut_ = 0;
  std::unordered_map<std::string, ReadFolder> read_;  // by identity
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
  const ScanReports reports = {
      .message = [&](const std::string& text) { platform.windows.MsgBox(text); },
      .pointer = [&](MousePointer pointer) { platform.screen.SetMousePointer(pointer); }};
  try {
    FindSubFolders(fold, state, platform.files, reports, List1);
  } catch (...) {
    platform.screen.SetMousePointer(MousePointer::Default);
    throw;
  }
}

void FindSubFolders(const std::string& fold, AppState& state, const FileSystem& files,
                    const ScanReports& reports, Listing& List1, int limit) {
  if (state.ElencoRighe > limit) return;
  RepairListingFont(state);
  state.ElencoColonne = 2;
  List1.Clear();
  FolderScan scan(state, files, reports, List1, limit);
  scan.List(fold);
  scan.TellWhatIsLeftOut();
}

}  // namespace Morvane
