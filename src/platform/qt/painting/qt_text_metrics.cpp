#include "platform/qt/painting/qt_text_metrics.h"

#include "platform/qt/painting/text_lines.h"
#include "platform/units.h"

namespace Morvane {
namespace {

double TwipsPerReferencePixel(const Font& font) {
  return font.size * kTwipsPerPoint / kReferencePixels;
}

}  // namespace

const QFontMetricsF& QtTextMetrics::AtReferenceSize(const Font& font) const {
  const auto key = std::tuple(font.name, font.bold, font.italic);
  const auto found = measured_.find(key);
  if (found != measured_.end()) return found->second;
  return measured_.emplace(key, QFontMetricsF(ReferenceFont(font))).first->second;
}

double QtTextMetrics::Width(const Font& font, const std::string& text) const {
  return AtReferenceSize(font).horizontalAdvance(QString::fromStdString(text)) * TwipsPerReferencePixel(font);
}

double QtTextMetrics::LineHeight(const Font& font) const {
  const QFontMetricsF& metrics = AtReferenceSize(font);
  return (metrics.ascent() + metrics.descent()) * TwipsPerReferencePixel(font);
}

}  // namespace Morvane
