#pragma once

#include <functional>
#include <string>

#include "core/app_state.h"
#include "windows/contents/listing.h"
#include "windows/platform_services.h"

namespace Morvane {

// Files of one folder that are listed in silence; the next one is listed too, but with a message.
inline constexpr int kMaxRighe = 1000;

// Lets the user choose a folder and puts it in `percorso`, which stays as it came on cancel. Returns it.
const std::string& SfogliaCartella(std::string& percorso, WindowSystem& windows);

// Lets the user choose a disc or folder and lists it in List1; on cancel everything stays as it was.
// RuntimeError when the folder, or one below it, can't be read: the list is left as far as it got.
void Leggifile(AppState& state, Platform& platform, Listing& List1);

// What a scan says while it reads.
struct ScanReports {
  std::function<void(const std::string& text)> message = [](const std::string&) {};
  std::function<void(MousePointer)> pointer = [](MousePointer) {};
};

// Lists a folder and all below it. ElencoRighe counts the files of each folder; above `limit` the user gets a
// message and the rest of the scan is given up. Another message tells how many files and folders are left out
// because no path can tell their names. Nothing is read when it is above the limit at the start.
// RuntimeError as above.
void FindSubFolders(const std::string& fold, AppState& state, const FileSystem& files,
                    const ScanReports& reports, Listing& List1, int limit = kMaxRighe);

}  // namespace Morvane
