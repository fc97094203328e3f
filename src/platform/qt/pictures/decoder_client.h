#pragma once

#include <optional>
#include <string>
#include <variant>

#include "platform/qt/pictures/old_format.h"

namespace Morvane {

// A drawing as an SVG text in UTF-8 that refers to nothing outside itself. Its root has a viewBox: the
// drawing fills whatever box it is stretched to. Natural size in twips, above 0.
struct DecodedSvg {
  std::string text;
  double widthTwips = 0;
  double heightTwips = 0;
};

// Rows from the top, four bytes a pixel (red, green, blue, opacity, not premultiplied), no padding.
// 1 to 30000 pixels each way, 64 M in all.
struct DecodedPixels {
  int width = 0;
  int height = 0;
  std::string rgba;
};

using DecodedPicture = std::variant<DecodedSvg, DecodedPixels>;

// Decodes a file's bytes (64 MB at most) in a process of its own, the program at decoderPath, which is given
// two seconds. Nothing: whatever goes wrong, in there or on the way.
std::optional<DecodedPicture> DecodeOldFormat(const std::string& decoderPath, OldFormat format,
                                              const std::string& bytes);

}  // namespace Morvane
