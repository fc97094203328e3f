#include "platform/files/mount_info.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <sstream>
#include <string_view>

namespace Morvane {

namespace {

constexpr std::array<std::string_view, 17> kNetworkFileSystems = {"nfs",
                                                                  "nfs4",
                                                                  "cifs",
                                                                  "smb3",
                                                                  "smbfs",
                                                                  "ncpfs",
                                                                  "afs",
                                                                  "ceph",
                                                                  "fuse.sshfs",
                                                                  "fuse.rclone",
                                                                  "davfs",
                                                                  "fuse.davfs2",
                                                                  "fuse.curlftpfs",
                                                                  "fuse.glusterfs",
                                                                  "vboxsf",
                                                                  "fuse.vmhgfs-fuse",
                                                                  "9p"};

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

bool IsDeviceNumbered(const std::string& source, std::string_view prefix) {
  return source.starts_with(prefix) && source.size() == prefix.size() + 1 &&
         std::isdigit(static_cast<unsigned char>(source.back())) != 0;
}

bool IsOctal(char c) {
  return c >= '0' && c <= '7';
}

// Blanks and the like stand in the table as a backslash and three octal digits.
std::string DecodeOctal(const std::string& text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 3 < text.size() && IsOctal(text[i + 1]) && IsOctal(text[i + 2]) &&
        IsOctal(text[i + 3])) {
      decoded += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
      i += 3;
    } else {
      decoded += text[i];
    }
  }
  return decoded;
}

}  // namespace

std::optional<MountInfo> ParseMountInfo(const std::string& line) {
  std::istringstream stream(line);
  std::string id, parent, options, field;
  MountInfo mount;
  stream >> id >> parent >> mount.device >> mount.root >> mount.mountPoint >> options;
  while (stream >> field && field != "-") {
  }
  if (!(stream >> mount.fileSystem >> mount.source)) return std::nullopt;
  mount.root = DecodeOctal(mount.root);
  mount.mountPoint = DecodeOctal(mount.mountPoint);
  mount.source = DecodeOctal(mount.source);
  if (!mount.mountPoint.starts_with('/')) return std::nullopt;
  return mount;
}

bool IsOptical(const MountInfo& mount) {
  return mount.fileSystem == "iso9660" || mount.source.starts_with("/dev/sr") ||
         mount.source.starts_with("/dev/scd");
}

bool IsNetwork(const MountInfo& mount) {
  return Contains(kNetworkFileSystems, mount.fileSystem);
}

bool IsFloppy(const MountInfo& mount) {
  return IsDeviceNumbered(mount.source, "/dev/fd") && mount.source.back() <= '1';
}

bool IsKnownToUser(const MountInfo& mount) {
  if (BelongsToSystem(mount.mountPoint)) return false;
  if (IsNetwork(mount) || mount.fileSystem == "zfs") return true;
  // Part of a volume is another view of files that have their place already; a subvolume is a volume.
  const bool whole = mount.root == "/" || mount.fileSystem == "btrfs";
  const bool image = mount.fileSystem == "squashfs" || mount.fileSystem == "erofs";
  return mount.source.starts_with("/dev/") && whole && !image;
}

}  // namespace Morvane
