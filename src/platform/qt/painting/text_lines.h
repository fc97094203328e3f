#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QList>
#include <QRectF>
#include <cstddef>
#include <string>
#include <unordered_map>

#include "platform/font.h"

namespace Morvane {

// Text of any size is laid out at this one and scaled, so that its proportions are the same on every device.
inline constexpr int kReferencePixels = 1000;

// The font at the reference size: no hinting, no kerning.
QFont ReferenceFont(const Font& font);

// One line of text at the reference size, its top left corner at 0,0.
struct LaidOutLine {
  QList<QGlyphRun> glyphs;
  QRectF underline;  // empty without one
};

// The lines that were painted last, laid out: that is most of the work in painting a sheet of small print,
// and the same at every size.
class TextLines {
 public:
  const LaidOutLine& LaidOut(const Font& font, const std::string& text);

 private:
  std::unordered_map<std::string, LaidOutLine> lines_;
};

}  // namespace Morvane
