#pragma once

#include <array>
#include <cstdint>

namespace Morvane {

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Color&) const = default;
};

// The 16-colour table; n from 0 to 15.
constexpr Color QBColor(std::size_t n) {
  constexpr std::array<Color, 16> kTable = {{
      // clang-format off
      {0, 0, 0},       {0, 0, 128},   {0, 128, 0},   {0, 128, 128},
      {128, 0, 0},     {128, 0, 128}, {128, 128, 0}, {192, 192, 192},
      {128, 128, 128}, {0, 0, 255},   {0, 255, 0},   {0, 255, 255},
      {255, 0, 0},     {255, 0, 255}, {255, 255, 0}, {255, 255, 255},
      // clang-format on
  }};
  return kTable.at(n);
}

}  // namespace Morvane
