#pragma once

#include <cstdint>

namespace Morvane {

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Color&) const = default;
};

// The 16-colour table; n from 0 to 15.
Color QBColor(int n);

}  // namespace Morvane
