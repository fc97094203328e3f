#pragma once

#include "platform/font_catalog.h"

namespace Morvane {

class QtFontCatalog : public FontCatalog {
 public:
  // The installed families and those that an installed one stands in for.
  std::vector<std::string> Families() const override;

  // Names are compared without regard to case. A family of bitmaps alone cannot be printed.
  bool CanPrint(const std::string& family) const override;
};

// Lets the toolkit take an installed family with the same metrics where one that the program names is
// missing. Called once, when the application has been made.
void InstallFontStandIns();

}  // namespace Morvane
