#pragma once

#include <string>

namespace Morvane {

// What the program knows of itself.
struct AppInfo {
  std::string title = "Morvane";
  std::string path;  // the program's folder, Windows form; ends in a backslash only when it is a drive's root
  std::string version = MORVANE_VERSION;  // major, minor and revision with points between
};

}  // namespace Morvane
