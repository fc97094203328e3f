#include "platform/qt/painting/qt_text_metrics.h"

#include <QFontDatabase>

#include "platform/qt/painting/font_stand_ins.h"
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

std::vector<std::string> QtFontCatalog::Families() const {
  std::vector<std::string> families;
  for (const QString& family : InstalledFamilies()) {
    if (!QFontDatabase::isPrivateFamily(family)) families.push_back(family.toStdString());
  }
  for (const FontStandIn& pair : UsableStandIns()) families.push_back(pair.family);
  return families;
}

bool QtFontCatalog::CanPrint(const std::string& family) const {
  const QString wanted = QString::fromStdString(family);
  for (const QString& installed : InstalledFamilies()) {
    if (installed.compare(wanted, Qt::CaseInsensitive) == 0)
      return QFontDatabase::isSmoothlyScalable(installed);
  }
  for (const FontStandIn& pair : UsableStandIns()) {
    if (wanted.compare(QString::fromStdString(pair.family), Qt::CaseInsensitive) == 0) return true;
  }
  return false;
}

}  // namespace Morvane
