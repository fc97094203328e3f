#pragma once

#include <cstdio>
#include <string>

namespace Morvane {

// Tells on standard error what went wrong.
inline void Complain(const std::string& text) {
  std::fputs(("morvane-print: " + text + '\n').c_str(), stderr);
}

}  // namespace Morvane
