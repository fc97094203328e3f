#pragma once

#include <string>
#include <vector>

namespace Morvane {

// Type codes of drives.
enum class DriveType {
  Unknown = 0,
  NoRoot = 1,
  Removable = 2,
  Fixed = 3,
  Remote = 4,
  CdRom = 5,
  RamDisk = 6
};

struct Volume {
  char letter = 0;
  std::string mountPoint;  // absolute path of this system
  std::string source;      // device or share
  DriveType type = DriveType::Fixed;
  bool isHome = false;
};

// The user's own folder. One that is "/", or no absolute path, is none.
struct UserHome {
  std::string folder;
  std::string userName;
};

// The mounted volumes that a user would know, each with a drive letter: C: is the user's home and Z: is "/",
// or C: is "/" for a user without a home; then come the discs, then the others; A: and B: are floppy drives
// only. A letter that was given stays with its mount point while it is mounted.
class MountTable {
 public:
  explicit MountTable(UserHome home, std::string mountInfoFile = "/proc/self/mountinfo",
                      std::string labelFolder = "/dev/disk/by-label");

  // Reads the mounts again. Without a readable file there are C: and, for a user with a home, Z: alone.
  void Refresh();

  // In the order of the letters.
  const std::vector<Volume>& Volumes() const { return volumes_; }
  // nullptr when no volume has the letter (upper case).
  const Volume* Find(char letter) const;

  // The volume's label, empty when it has none; the home's is the user's name. Where labels can't be told (a
  // share, a system that lists none), the name under which the desktop mounted it, empty when that was not
  // the desktop.
  std::string Label(const Volume& volume) const;

 private:
  UserHome home_;
  std::string mountInfoFile_;
  std::string labelFolder_;
  std::vector<Volume> volumes_;
};

}  // namespace Morvane
