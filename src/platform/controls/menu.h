#pragma once

#include <functional>
#include <string>
#include <vector>

namespace Morvane {

// One entry of a menu. The caption "-" is a separator; "&" marks the access key.
struct MenuItem {
  std::string name;
  std::string caption;
  std::string shortcut = {};  // such as "Ctrl+P"; empty for none
  std::function<void()> Click = nullptr;
  std::vector<MenuItem> items = {};
  bool enabled = true;
};

}  // namespace Morvane
