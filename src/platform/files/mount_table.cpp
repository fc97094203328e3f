#include "platform/files/mount_table.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <set>
#include <utility>

#include "platform/files/mount_info.h"
#include "platform/windows_1252.h"

namespace Morvane {

namespace {

// Without a slash at its end; "/" for a user without a home.
std::string HomeFolder(const std::string& given) {
  std::string folder = std::filesystem::path(given).lexically_normal().string();
  while (folder.ends_with('/')) folder.pop_back();
  return folder.starts_with('/') ? folder : std::string("/");
}

DriveType TypeOf(const MountInfo& mount) {
  if (IsFloppy(mount)) return DriveType::Removable;
  if (IsOptical(mount)) return DriveType::CdRom;
  return IsNetwork(mount) ? DriveType::Remote : DriveType::Fixed;
}

// The system's root, and the home when it is another folder, then the further volumes, discs before the
// others; those still without letters.
std::vector<Volume> KnownVolumes(const std::vector<MountInfo>& mounts, const std::string& home) {
  std::vector<Volume> volumes = {{home == "/" ? 'C' : 'Z', "/", "", DriveType::Fixed}};
  std::set<std::string> devices;
  for (const MountInfo& mount : mounts) {
    if (mount.mountPoint != "/") continue;
    volumes.front().source = mount.source;
    devices.insert(mount.device);
  }
  if (home != "/") volumes.push_back({'C', home, "", DriveType::Fixed, true});
  const auto further = static_cast<std::ptrdiff_t>(volumes.size());
  for (const MountInfo& mount : mounts) {
    if (mount.mountPoint == "/" || mount.mountPoint == home || !IsKnownToUser(mount)) continue;
    if (devices.insert(mount.device).second)
      volumes.push_back({0, mount.mountPoint, mount.source, TypeOf(mount)});
  }
  std::stable_partition(volumes.begin() + further, volumes.end(),
                        [](const Volume& volume) { return volume.type == DriveType::CdRom; });
  return volumes;
}

// The first letter at or behind the volume's own that nobody has; 0 when there is none left.
char FreeLetter(const Volume& volume, const std::set<char>& taken) {
  const bool floppy = volume.type == DriveType::Removable;
  const char first = floppy ? static_cast<char>('A' + volume.source.back() - '0') : 'D';
  const char last = floppy ? first : 'Z';
  for (char letter = first; letter <= last; ++letter) {
    if (!taken.contains(letter)) return letter;
  }
  return 0;
}

void GiveLetters(std::vector<Volume>& volumes, const std::vector<Volume>& before) {
  std::set<char> taken;
  for (Volume& volume : volumes) {
    const auto same = std::find_if(before.begin(), before.end(), [&](const Volume& earlier) {
      return earlier.mountPoint == volume.mountPoint && earlier.type == volume.type;
    });
    if (same != before.end()) volume.letter = same->letter;
    taken.insert(volume.letter);
  }
  for (Volume& volume : volumes) {
    if (volume.letter == 0) volume.letter = FreeLetter(volume, taken);
    taken.insert(volume.letter);
  }
  std::erase_if(volumes, [](const Volume& volume) { return volume.letter == 0; });
}

// Blanks and the like stand in a label's link as "\x20".
std::string DecodeHex(const std::string& text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char* digits = text.data() + i + 2;
    unsigned character = 0;
    const bool escape = text.compare(i, 2, "\\x") == 0 && i + 3 < text.size() &&
                        std::from_chars(digits, digits + 2, character, 16).ptr == digits + 2;
    decoded += escape ? static_cast<char>(character) : text[i];
    if (escape) i += 3;
  }
  return decoded;
}

// "sdb1" for /dev/sdb1; for a name that is a link to the device, the device's.
std::string DeviceName(const std::string& source) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::read_symlink(source, error);
  return (error ? std::filesystem::path(source) : target).filename().string();
}

std::string LabelFromLinks(const std::string& folder, const std::string& source) {
  const std::string device = DeviceName(source);
  std::error_code error;
  for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    std::error_code noLink;
    const std::filesystem::path target = std::filesystem::read_symlink(it->path(), noLink);
    if (!noLink && target.filename() == device)
      return ReadableUtf8(DecodeHex(it->path().filename().string()));
  }
  return "";
}

}  // namespace

MountTable::MountTable(UserHome home, std::string mountInfoFile, std::string labelFolder)
    : home_(std::move(home)), mountInfoFile_(std::move(mountInfoFile)), labelFolder_(std::move(labelFolder)) {
  home_.folder = HomeFolder(std::move(home_.folder));
  Refresh();
}

void MountTable::Refresh() {
  std::vector<Volume> volumes = KnownVolumes(ReadMounts(mountInfoFile_), home_.folder);
  GiveLetters(volumes, volumes_);
  std::sort(volumes.begin(), volumes.end(),
            [](const Volume& left, const Volume& right) { return left.letter < right.letter; });
  volumes_ = std::move(volumes);
}

const Volume* MountTable::Find(char letter) const {
  const auto found = std::find_if(volumes_.begin(), volumes_.end(),
                                  [letter](const Volume& volume) { return volume.letter == letter; });
  return found != volumes_.end() ? &*found : nullptr;
}

std::string MountTable::Label(const Volume& volume) const {
  if (volume.isHome) return home_.userName;
  std::error_code noFolder;
  if (volume.source.starts_with("/dev/") && std::filesystem::is_directory(labelFolder_, noFolder))
    return LabelFromLinks(labelFolder_, volume.source);
  const bool byDesktop =
      volume.mountPoint.starts_with("/media/") || volume.mountPoint.starts_with("/run/media/");
  if (!byDesktop) return "";
  return ReadableUtf8(volume.mountPoint.substr(volume.mountPoint.rfind('/') + 1));
}

}  // namespace Morvane
