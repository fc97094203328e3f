#pragma once

#include <string>
#include <vector>

namespace Morvane {

// One line of the kernel's table of mounts, which is a file of the form of /proc/self/mountinfo.
struct MountInfo {
  std::string device;  // its number
  std::string root;    // the part of the file system that is mounted; "/" is all of it
  std::string mountPoint;
  std::string fileSystem;
  std::string source;
};

// In the order of the table, without what another mount hides. None when the file cannot be read.
std::vector<MountInfo> ReadMounts(const std::string& mountInfoFile);

bool IsOptical(const MountInfo& mount);
bool IsNetwork(const MountInfo& mount);
bool IsFloppy(const MountInfo& mount);
// A volume that a user knows as one: a disc, a stick, a disk of its own, a share. Not the parts of the
// system.
bool IsKnownToUser(const MountInfo& mount);

}  // namespace Morvane
