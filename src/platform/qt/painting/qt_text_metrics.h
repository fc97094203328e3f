#pragma once

#include <QFontMetricsF>
#include <map>
#include <tuple>

#include "platform/text_metrics.h"

namespace Morvane {

// Measures at one large size and scales, so that widths are exactly proportional to the size.
class QtTextMetrics : public TextMetrics {
 public:
  double Width(const Font& font, const std::string& text) const override;
  double LineHeight(const Font& font) const override;

 private:
  const QFontMetricsF& AtReferenceSize(const Font& font) const;

  mutable std::map<std::tuple<std::string, bool, bool>, QFontMetricsF> measured_;
};

class QtFontCatalog : public FontCatalog {
 public:
  // The installed families and those that an installed one stands in for.
  std::vector<std::string> Families() const override;

  // Names are compared without regard to case. A family of bitmaps alone cannot be printed.
  bool CanPrint(const std::string& family) const override;
};

}  // namespace Morvane
