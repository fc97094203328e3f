#pragma once

#include <QGlyphRun>
#include <QList>
#include <QRectF>
#include <cstddef>
#include <string>
#include <unordered_map>

#include "platform/font.h"

namespace Morvane {

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
