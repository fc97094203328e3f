#include "platform/color.h"

#include <array>

namespace Morvane {

Color QBColor(int n) {
  static constexpr std::array<Color, 16> kTable = {{{0, 0, 0},
                                                    {0, 0, 128},
                                                    {0, 128, 0},
                                                    {0, 128, 128},
                                                    {128, 0, 0},
                                                    {128, 0, 128},
                                                    {128, 128, 0},
                                                    {192, 192, 192},
                                                    {128, 128, 128},
                                                    {0, 0, 255},
                                                    {0, 255, 0},
                                                    {0, 255, 255},
                                                    {255, 0, 0},
                                                    {255, 0, 255},
                                                    {255, 255, 0},
                                                    {255, 255, 255}}};
  return kTable.at(static_cast<std::size_t>(n));
}

}  // namespace Morvane
