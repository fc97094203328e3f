#pragma once

#include <string>

namespace Morvane {

// Native paths; empty where the system tells none.
struct AppFolderPlaces {
  std::string executableFolder;
  std::string dataHome;  // value of XDG_DATA_HOME; one that is not absolute does not count
  std::string home;
  std::string shippedFolder;  // layouts and texts of an installed program; need not exist
};

struct AppFolder {
  std::string path;
  std::string problem;  // why the user has no folder of his own, in Italian; empty when all is well
};

// The program's folder: the executable's own when it can be written and the program is not an installed one
// (root could write to /usr/bin, too), else "morvane" in the user's data folder. That one is made with copies
// of the shipped files at first use, whole or not at all, and then left as the user has it. When it cannot be
// made, the shipped files serve where they are, for reading, and the next start tries again.
AppFolder FindAppFolder(const AppFolderPlaces& places);

}  // namespace Morvane
