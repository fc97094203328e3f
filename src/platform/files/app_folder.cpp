#include "platform/files/app_folder.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace Morvane {

namespace {

namespace fs = std::filesystem;

fs::path DataFolder(const AppFolderPlaces& places) {
  const fs::path dataHome = places.dataHome;
  const fs::path base = dataHome.is_absolute() ? dataHome : fs::path(places.home) / ".local" / "share";
  return base / "morvane";
}

void CopyPlainFiles(const fs::path& from, const fs::path& to) {
  std::error_code error;
  for (fs::directory_iterator it(from, error), end; !error && it != end; it.increment(error)) {
    std::error_code skipped;
    if (!it->is_regular_file(skipped)) continue;
    const fs::path copy = to / it->path().filename();
    fs::copy_file(it->path(), copy, skipped);
    // What is shipped may be read-only; the copy is the user's.
    fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, skipped);
  }
}

// Fills a folder of another name first: an interrupted filling must not pass for a filled folder.
void MakeFilled(const fs::path& folder, const fs::path& shipped) {
  std::error_code error;
  fs::create_directories(folder.parent_path(), error);
  std::string fresh = (folder.parent_path() / ".morvane-XXXXXX").string();
  if (::mkdtemp(fresh.data()) == nullptr) return;
  CopyPlainFiles(shipped, fresh);
  fs::rename(fresh, folder, error);
  if (error) fs::remove_all(fresh, error);
}

bool CanBeWritten(const std::string& folder) {
  return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

}  // namespace

std::string FindAppFolder(const AppFolderPlaces& places) {
  std::error_code error;
  const bool installed = fs::is_directory(places.shippedFolder, error);
  if (!installed && CanBeWritten(places.executableFolder)) return places.executableFolder;
  const fs::path folder = DataFolder(places);
  if (!folder.is_absolute()) return places.executableFolder;
  if (!fs::exists(folder, error)) MakeFilled(folder, places.shippedFolder);
  return fs::is_directory(folder, error) ? folder.string() : places.executableFolder;
}

}  // namespace Morvane
