#include "platform/qt/painting/text_lines.h"

#include <QFontMetricsF>
#include <QTextLayout>

namespace Morvane {
namespace {

constexpr std::size_t kMostLines = 10000;  // several full sheets

// The toolkit's own underline of glyphs has the wrong width on a scaled painter and touches the letters, so
// it is a box of ours.
LaidOutLine LayOut(const Font& font, const std::string& text) {
  const QFont reference = ReferenceFont(font);
  const QFontMetricsF metrics(reference);
  QTextLayout layout(QString::fromStdString(text), reference);
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setWrapMode(QTextOption::NoWrap);
  layout.setTextOption(option);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  if (!line.isValid()) return {};
  line.setLineWidth(0);  // any will do where nothing is wrapped; without one there are no glyphs
  // A letter that another font lends may be higher; the line stays on its own font's baseline.
  line.setPosition({0, metrics.ascent() - line.ascent()});
  layout.endLayout();
  const double thickness = metrics.lineWidth();
  const QRectF underline(0, metrics.ascent() + thickness, line.naturalTextWidth(), thickness);
  return {line.glyphRuns(), font.underline ? underline : QRectF()};
}

// Everything but the size.
std::string KeyOf(const Font& font, const std::string& text) {
  const char style = static_cast<char>('0' + font.bold + 2 * font.italic + 4 * font.underline);
  return font.name + '\0' + style + text;
}

}  // namespace

QFont ReferenceFont(const Font& font) {
  QFont reference(QString::fromStdString(font.name));
  reference.setPixelSize(kReferencePixels);
  reference.setHintingPreference(QFont::PreferNoHinting);
  reference.setKerning(false);
  reference.setBold(font.bold);
  reference.setItalic(font.italic);
  return reference;
}

const LaidOutLine& TextLines::LaidOut(const Font& font, const std::string& text) {
  std::string key = KeyOf(font, text);
  const auto found = lines_.find(key);
  if (found != lines_.end()) return found->second;
  if (lines_.size() >= kMostLines) lines_.clear();
  return lines_.emplace(std::move(key), LayOut(font, text)).first->second;
}

}  // namespace Morvane
