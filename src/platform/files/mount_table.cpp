#include "platform/files/mount_table.h"

#include <libmount.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

#include "platform/windows_1252.h"

namespace Morvane {

namespace {

// One line of the kernel's table of mounts.
struct Mount {
  std::string device;  // its number
  std::string root;    // the part of the file system that is mounted; "/" is all of it
  std::string mountPoint;
  std::string fileSystem;
  std::string source;
};

// Those of the network that the library does not know as such.
constexpr std::array<std::string_view, 7> kShares = {
    "ceph", "davfs", "fuse.davfs2", "fuse.glusterfs", "fuse.rclone", "fuse.vmhgfs-fuse", "vboxsf"};

// Mount points that belong to the system, with all below them.
constexpr std::array<std::string_view, 12> kSystemTrees = {"/boot", "/efi", "/usr",  "/var", "/etc", "/dev",
                                                           "/proc", "/sys", "/snap", "/tmp", "/run", "/nix"};
// Mount points that belong to the system, but not what is mounted below them.
constexpr std::array<std::string_view, 3> kSystemPoints = {"/home", "/root", "/opt"};

template <typename Names>
bool Contains(const Names& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool LiesIn(std::string_view path, std::string_view tree) {
  return path.starts_with(tree) && (path.size() == tree.size() || path[tree.size()] == '/');
}

bool BelongsToSystem(const std::string& mountPoint) {
  if (LiesIn(mountPoint, "/run/media")) return false;
  if (mountPoint.find("/.") != std::string::npos || Contains(kSystemPoints, mountPoint)) return true;
  return std::any_of(kSystemTrees.begin(), kSystemTrees.end(),
                     [&](std::string_view tree) { return LiesIn(mountPoint, tree); });
}

// A floppy drive's device ends in its number, 0 or 1.
bool IsFloppy(const Mount& mount) {
  return mount.source == "/dev/fd0" || mount.source == "/dev/fd1";
}

bool IsOptical(const Mount& mount) {
  return mount.fileSystem == "iso9660" || mount.source.starts_with("/dev/sr") ||
         mount.source.starts_with("/dev/scd");
}

bool IsNetwork(const Mount& mount) {
  return mnt_fstype_is_netfs(mount.fileSystem.c_str()) != 0 || Contains(kShares, mount.fileSystem);
}

// A volume that a user knows as one: a disc, a stick, a disk of its own, a share. Not the parts of the
// system.
bool IsKnownToUser(const Mount& mount) {
  if (BelongsToSystem(mount.mountPoint)) return false;
  if (IsNetwork(mount) || mount.fileSystem == "zfs") return true;
  // Part of a volume is another view of files that have their place already; a subvolume is a volume.
  const bool whole = mount.root == "/" || mount.fileSystem == "btrfs";
  const bool image = mount.fileSystem == "squashfs" || mount.fileSystem == "erofs";
  return mount.source.starts_with("/dev/") && whole && !image;
}

// In the order of the table, without what another mount hides. None when the file cannot be read.
std::vector<Mount> ReadMounts(const std::string& mountInfoFile) {
  std::vector<Mount> mounts;
  const std::unique_ptr<libmnt_table, decltype(&mnt_unref_table)> table(
      mnt_new_table_from_file(mountInfoFile.c_str()), &mnt_unref_table);
  const std::unique_ptr<libmnt_iter, decltype(&mnt_free_iter)> at(mnt_new_iter(MNT_ITER_FORWARD),
                                                                  &mnt_free_iter);
  const auto text = [](const char* field) { return std::string(field != nullptr ? field : ""); };
  libmnt_fs* fs = nullptr;
  while (table && mnt_table_next_fs(table.get(), at.get(), &fs) == 0) {
    Mount mount{std::to_string(mnt_fs_get_devno(fs)), text(mnt_fs_get_root(fs)), text(mnt_fs_get_target(fs)),
                text(mnt_fs_get_fstype(fs)), text(mnt_fs_get_source(fs))};
    std::erase_if(mounts, [&](const Mount& earlier) { return earlier.mountPoint == mount.mountPoint; });
    mounts.push_back(std::move(mount));
  }
  return mounts;
}

// Without a slash at its end; "/" for a user without a home.
std::string HomeFolder(const std::string& given) {
  std::string folder = std::filesystem::path(given).lexically_normal().string();
  while (folder.ends_with('/')) folder.pop_back();
  return folder.starts_with('/') ? folder : std::string("/");
}

DriveType TypeOf(const Mount& mount) {
  if (IsFloppy(mount)) return DriveType::Removable;
  if (IsOptical(mount)) return DriveType::CdRom;
  return IsNetwork(mount) ? DriveType::Remote : DriveType::Fixed;
}

// The system's root, and the home when it is another folder, then the further volumes, discs before the
// others; those still without letters.
std::vector<Volume> KnownVolumes(const std::vector<Mount>& mounts, const std::string& home) {
  std::vector<Volume> volumes = {{home == "/" ? 'C' : 'Z', "/", "", DriveType::Fixed}};
  std::set<std::string> devices;
  for (const Mount& mount : mounts) {
    if (mount.mountPoint != "/") continue;
    volumes.front().source = mount.source;
    devices.insert(mount.device);
  }
  if (home != "/") volumes.push_back({'C', home, "", DriveType::Fixed, true});
  const auto further = static_cast<std::ptrdiff_t>(volumes.size());
  for (const Mount& mount : mounts) {
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
