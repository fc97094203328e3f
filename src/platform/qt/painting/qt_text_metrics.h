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

}  // namespace Morvane
