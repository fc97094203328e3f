#include "platform/files/app_folder.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/files/file_error.h"
#include "platform/files/pending_file.h"
#include "platform/files/plain_file.h"

namespace Morvane {

namespace {

namespace fs = std::filesystem;

fs::path DataFolder(const AppFolderPlaces& places) {
  const fs::path dataHome = places.dataHome;
  const fs::path base = dataHome.is_absolute() ? dataHome : fs::path(places.home) / ".local" / "share";
  return base / "morvane";
}

// What is shipped may be read-only; the copies are the user's. A failure names `folder`.
void CopyPlainFiles(const fs::path& from, const fs::path& to, const std::string& folder) {
  for (const auto& entry : fs::directory_iterator(from)) {
    if (!entry.is_regular_file()) continue;
    PendingFile copy(to.string(), folder);
    copy.Write(ReadPlainFile(entry.path().string(), folder));
    copy.TakeFreeName(entry.path().filename().string());
  }
}

// Fills a folder of another name first: a half-filled one must never pass for the program's folder.
void MakeFilled(const fs::path& folder, const fs::path& shipped) {
  fs::create_directories(folder.parent_path());
  std::string fresh = (folder.parent_path() / ".morvane-XXXXXX").string();
  if (::mkdtemp(fresh.data()) == nullptr)
    throw fs::filesystem_error("mkdtemp", fresh, std::error_code(errno, std::generic_category()));
  try {
    CopyPlainFiles(shipped, fresh, folder.string());
    fs::rename(fresh, folder);
  } catch (const std::exception&) {
    std::error_code ignored;
    fs::remove_all(fresh, ignored);
    if (!fs::is_directory(folder, ignored)) throw;  // else another start of the program has made it meanwhile
  }
}

bool CanBeWritten(const std::string& folder) {
  return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

}  // namespace

AppFolder FindAppFolder(const AppFolderPlaces& places) {
  std::error_code error;
  const bool installed = fs::is_directory(places.shippedFolder, error);
  if (!installed && CanBeWritten(places.executableFolder)) return {places.executableFolder, {}};
  const fs::path folder = DataFolder(places);
  const std::string without = installed ? places.shippedFolder : places.executableFolder;
  if (!folder.is_absolute()) return {without, "La cartella personale dell'utente non è nota."};
  try {
    if (!fs::exists(folder)) MakeFilled(folder, places.shippedFolder);
    if (fs::is_directory(folder)) return {folder.string(), {}};
    return {without, FileError(ErrorNumber::PathNotFound, folder.string()).what()};
  } catch (const RuntimeError& failure) {
    return {without, failure.what()};
  } catch (const fs::filesystem_error& failure) {
    return {without, SystemFileError(failure.code().value(), folder.string()).what()};
  }
}

}  // namespace Morvane
