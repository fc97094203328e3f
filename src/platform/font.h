#pragma once

#include <string>

namespace Morvane {

struct Font {
  std::string name = "Arial";
  double size = 8;  // points, above 0
  bool bold = false;
  bool italic = false;
  bool underline = false;

  bool operator==(const Font&) const = default;
};

}  // namespace Morvane
