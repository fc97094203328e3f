#include "platform/files/path_mapping.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/files/file_error.h"
#include "platform/files/folder_entries.h"
#include "platform/files/name_order.h"
#include "platform/text.h"
#include "platform/windows_1252.h"

namespace Morvane {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestName = 255;  // bytes

// A link counts as a name, wherever it leads, and as a folder when it leads to one.
bool IsThere(const std::string& native, Wanted wanted) {
  std::error_code unknown;  // then nothing is
  return wanted == Wanted::Folder ? fs::is_directory(native, unknown)
                                  : fs::exists(fs::symlink_status(native, unknown));
}

std::string WithoutSlashAtEnd(std::string path) {
  while (path.ends_with('/')) path.pop_back();
  return path;
}

std::string OrSlash(const std::string& native) {
  return native.empty() ? "/" : native;
}

// Such a name would lead elsewhere on this system, or be cut.
bool MisleadsSystem(const std::string& name) {
  return name.find('/') != std::string::npos || name.find('\0') != std::string::npos;
}

bool CanBeGiven(const std::string& name) {
  return !name.empty() && name.size() <= kLongestName && !MisleadsSystem(name) &&
         name.find(':') == std::string::npos;
}

char DriveLetter(const std::string& path) {
  return path.size() >= 2 && path[1] == ':' ? ToUpper(path.substr(0, 1)).front() : '\0';
}

// What of `path` lies below `folder`, beginning with a slash or empty; nothing when it lies elsewhere.
std::optional<std::string> Below(const std::string& path, const std::string& folder) {
  if (!path.starts_with(folder)) return std::nullopt;
  std::string rest = path.substr(folder.size());
  if (!rest.empty() && rest.front() != '/') return std::nullopt;
  return rest;
}

}  // namespace

PathMapping::PathMapping(std::string root, MountTable mounts)
    : root_(WithoutSlashAtEnd(std::move(root))), mounts_(std::move(mounts)) {}

PathMapping::SplitPath PathMapping::Split(const std::string& path) {
  SplitPath split;
  const char letter = DriveLetter(path);
  if (letter != 0) split.drive = letter;
  for (std::size_t at = letter != 0 ? 2 : 0; at < path.size();) {
    const std::size_t end = std::min(path.find('\\', at), path.size());
    const std::string name = path.substr(at, end - at);
    if (name == "..") {
      if (!split.names.empty()) split.names.pop_back();
    } else if (!name.empty() && name != ".") {
      split.names.push_back(name);
    }
    split.endsInName = end == path.size() && name != "." && name != "..";
    at = end + 1;
  }
  return split;
}

std::optional<Volume> PathMapping::VolumeWithLetter(char letter) const {
  const Volume* volume = mounts_.Find(letter);
  if (volume == nullptr) {
    mounts_.Refresh();
    volume = mounts_.Find(letter);
  }
  return volume != nullptr ? std::optional(*volume) : std::nullopt;
}

std::optional<Volume> PathMapping::VolumeOf(const std::string& drive) const {
  return VolumeWithLetter(Split(drive).drive);
}

std::vector<Volume> PathMapping::CurrentVolumes() const {
  mounts_.Refresh();
  return mounts_.Volumes();
}

std::optional<std::string> PathMapping::FindName(const std::string& folder, const std::string& name,
                                                 Wanted wanted) {
  if (MisleadsSystem(name)) return std::nullopt;
  if (IsThere(folder + "/" + name, wanted)) return name;
  std::error_code unknown;
  const fs::file_type type = fs::status(OrSlash(folder), unknown).type();
  if (type == fs::file_type::none && unknown != std::errc::too_many_symbolic_link_levels)
    throw SystemFileError(unknown.value(), name);
  if (type != fs::file_type::directory) return std::nullopt;
  std::optional<std::string> best;
  VisitFolder(OrSlash(folder), name, [&](const FolderEntry& entry) {
    const std::string_view raw = entry.name;
    if (!IsSameName(raw, name) || (wanted == Wanted::Folder && entry.Kind() != EntryKind::Folder))
      return true;
    const bool isExact = ReadableUtf8(raw) == name;
    if (isExact || !best || NameIsBefore(raw, *best)) best = raw;
    return !isExact;
  });
  return best;
}

std::optional<PathMapping::Walk> PathMapping::Follow(const SplitPath& path, Wanted wanted) const {
  const auto volume = VolumeWithLetter(path.drive);
  if (!volume) return std::nullopt;
  Walk walk{root_ + WithoutSlashAtEnd(volume->mountPoint), path.names};
  while (!walk.missing.empty()) {
    const bool isLast = walk.missing.size() == 1;
    const auto found = FindName(walk.native, walk.missing.front(), isLast ? wanted : Wanted::Folder);
    if (!found) break;
    walk.native += "/" + *found;
    walk.missing.erase(walk.missing.begin());
  }
  return walk;
}

std::optional<std::string> PathMapping::Find(const std::string& path, Wanted wanted) const {
  const auto walk = Follow(Split(path), wanted);
  if (!walk || !walk->missing.empty()) return std::nullopt;
  return OrSlash(walk->native);
}

std::string PathMapping::Existing(const std::string& path) const {
  const auto walk = Follow(Split(path), Wanted::Anything);
  if (walk && walk->missing.empty()) return OrSlash(walk->native);
  const bool onlyLastMissing = walk && walk->missing.size() == 1;
  throw FileError(onlyLastMissing ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound, path);
}

PathTarget PathMapping::Target(const std::string& path) const {
  SplitPath split = Split(path);
  if (!split.endsInName || split.names.empty()) throw FileError(ErrorNumber::BadFileName, path);
  PathTarget target;
  target.name = split.names.back();
  split.names.pop_back();

  const auto walk = Follow(split, Wanted::Folder);
  if (!walk || !walk->missing.empty()) throw FileError(ErrorNumber::PathNotFound, path);
  target.folder = walk->native;
  target.existing = FindName(target.folder, target.name, Wanted::Anything);
  if (!target.existing && !CanBeGiven(target.name)) throw FileError(ErrorNumber::BadFileName, path);
  return target;
}

std::string PathMapping::ToNative(const std::string& path) const {
  const auto walk = Follow(Split(path), Wanted::Anything);
  if (!walk) throw FileError(ErrorNumber::PathNotFound, path);
  std::string native = walk->native;
  for (const std::string& name : walk->missing) {
    if (MisleadsSystem(name)) throw FileError(ErrorNumber::BadFileName, path);
    native += "/" + name;
  }
  return OrSlash(native);
}

std::string PathMapping::FromNative(const std::string& nativePath) const {
  const std::string normal = fs::path(nativePath).lexically_normal().string();
  const auto inside = Below(WithoutSlashAtEnd(normal), root_);
  if (!normal.starts_with('/') || !inside) return "";

  std::vector<Volume> volumes = CurrentVolumes();
  std::erase_if(volumes,
                [&](const Volume& volume) { return !Below(*inside, WithoutSlashAtEnd(volume.mountPoint)); });
  // What lies below the home is told by C:, all else by the nearest mount point.
  const auto teller =
      std::max_element(volumes.begin(), volumes.end(), [](const Volume& left, const Volume& right) {
        return std::pair(left.isHome, left.mountPoint.size()) <
               std::pair(right.isHome, right.mountPoint.size());
      });
  if (teller == volumes.end()) return "";
  const std::string rest = inside->substr(WithoutSlashAtEnd(teller->mountPoint).size());
  if (rest.find('\\') != std::string::npos) return "";
  std::string path = ReadableUtf8(rest.empty() ? "/" : rest);
  std::replace(path.begin(), path.end(), '/', '\\');
  return std::string(1, teller->letter) + ":" + path;
}

}  // namespace Morvane
