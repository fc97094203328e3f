#pragma once

#include <optional>
#include <string>

namespace Morvane {

// One line of the kernel's table of mounts.
struct MountInfo {
  std::string device;  // major and minor number, "8:1"
  std::string root;    // the part of the file system that is mounted; "/" is all of it
  std::string mountPoint;
  std::string fileSystem;
  std::string source;
};

// Nothing when the line is not one of the table.
std::optional<MountInfo> ParseMountInfo(const std::string& line);

bool IsOptical(const MountInfo& mount);
bool IsNetwork(const MountInfo& mount);
bool IsFloppy(const MountInfo& mount);
// A volume that a user knows as one: a disc, a stick, a disk of its own, a share. Not the parts of the
// system.
bool IsKnownToUser(const MountInfo& mount);

}  // namespace Morvane
