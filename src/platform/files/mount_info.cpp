#include "platform/files/mount_info.h"

#include <libmount.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <memory>
#include <string_view>
#include <utility>

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

}  // namespace

std::vector<MountInfo> ReadMounts(const std::string& mountInfoFile) {
  std::vector<MountInfo> mounts;
  const std::unique_ptr<libmnt_table, decltype(&mnt_unref_table)> table(
      mnt_new_table_from_file(mountInfoFile.c_str()), &mnt_unref_table);
  const std::unique_ptr<libmnt_iter, decltype(&mnt_free_iter)> at(mnt_new_iter(MNT_ITER_FORWARD),
                                                                  &mnt_free_iter);
  const auto text = [](const char* field) { return std::string(field != nullptr ? field : ""); };
  libmnt_fs* fs = nullptr;
  while (table && mnt_table_next_fs(table.get(), at.get(), &fs) == 0) {
    MountInfo mount{std::to_string(mnt_fs_get_devno(fs)), text(mnt_fs_get_root(fs)),
                    text(mnt_fs_get_target(fs)), text(mnt_fs_get_fstype(fs)), text(mnt_fs_get_source(fs))};
    std::erase_if(mounts, [&](const MountInfo& earlier) { return earlier.mountPoint == mount.mountPoint; });
    mounts.push_back(std::move(mount));
  }
  return mounts;
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
