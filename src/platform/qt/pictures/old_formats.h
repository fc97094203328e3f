#pragma once

#include <QByteArray>
#include <optional>
#include <string>
#include <variant>

namespace Morvane {

enum class OldFormat { Emf, Wmf, Iff };

// The format that a file's bytes show, whatever its name says. Nothing when they are none of the three.
std::optional<OldFormat> FormatOf(const QByteArray& bytes);

// A drawing as an SVG text in UTF-8 that refers to nothing outside itself. Its root has a viewBox: the
// drawing fills whatever box it is stretched to. Natural size in twips, above 0.
struct DecodedSvg {
  QByteArray text;
  double widthTwips = 0;
  double heightTwips = 0;
};

// Rows from the top, four bytes a pixel (red, green, blue, opacity, not premultiplied), no padding. Width and
// height in pixels, from 1 to DecoderLimits::kSide.
struct DecodedPixels {
  int width = 0;
  int height = 0;
  QByteArray rgba;
};

using DecodedPicture = std::variant<DecodedSvg, DecodedPixels>;

// Decodes a file's bytes in a process of its own, the program at decoderPath, within DecoderLimits. Nothing:
// whatever goes wrong, in there or on the way.
std::optional<DecodedPicture> DecodeOldFormat(const std::string& decoderPath, OldFormat format,
                                              const QByteArray& bytes);

}  // namespace Morvane
