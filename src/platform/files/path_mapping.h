#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/files/mount_table.h"

namespace Morvane {

// Where a file is to be written or moved to.
struct PathTarget {
  std::string folder;                   // native, exists
  std::string name;                     // as given
  std::optional<std::string> existing;  // the name on the disk when something is there already

  std::string NativePath() const { return folder + "/" + existing.value_or(name); }
};

// What may stand at the end of a path that is looked up. On the way there only folders count.
enum class Wanted { Anything, Folder };

// Turns paths of the Windows form into this system's and back. Each name is looked up: the exact one wins,
// else the first that is equal without case. ".." never leads out of a drive.
class PathMapping {
 public:
  // `root` is the native folder that stands for "/".
  PathMapping(std::string root, MountTable mounts);

  // The native path of what stands at a path; nothing when nothing does. A link counts, wherever it leads.
  std::optional<std::string> Find(const std::string& path, Wanted wanted) const;
  // RuntimeError: PathNotFound for a missing folder on the way, else FileNotFound.
  std::string Existing(const std::string& path) const;
  // RuntimeError: PathNotFound, BadFileName.
  PathTarget Target(const std::string& path) const;

  // Names that are there as they are on the disk, the others as given. RuntimeError: PathNotFound for a drive
  // that is not there, BadFileName.
  std::string ToNative(const std::string& path) const;
  std::string FromNative(const std::string& nativePath) const;

  // The drives as they are now, in the order of their letters.
  std::vector<Volume> CurrentVolumes() const;
  // The volume of a drive ("C:" or a longer path); nothing when it is not there.
  std::optional<Volume> VolumeOf(const std::string& drive) const;
  std::string Label(const Volume& volume) const { return mounts_.Label(volume); }

 private:
  struct SplitPath {
    char drive = 'C';
    std::vector<std::string> names;
    bool endsInName = false;  // not in a backslash, "." or ".."
  };
  struct Walk {
    std::string native;                // what is there, without a slash at its end
    std::vector<std::string> missing;  // the names behind it
  };

  static SplitPath Split(const std::string& path);
  std::optional<Volume> VolumeWithLetter(char letter) const;
  static std::optional<std::string> FindName(const std::string& folder, const std::string& name,
                                             Wanted wanted);
  // Nothing when the drive is not there.
  std::optional<Walk> Follow(const SplitPath& path, Wanted wanted) const;

  std::string root_;
  mutable MountTable mounts_;  // the machine's state, not this object's
};

}  // namespace Morvane
