#pragma once

#include <string>
#include <vector>

#include "platform/font.h"

namespace Morvane {

// How large text is, in twips, without regard to any device: unhinted, in fractions, exactly proportional to
// the font's size. So a line breaks at the same word on every screen and on paper.
class TextMetrics {
 public:
  virtual ~TextMetrics() = default;

  // Width of one line of UTF-8 text.
  virtual double Width(const Font& font, const std::string& text) const = 0;

  // Ascent plus descent of one line; no spacing between lines is part of it.
  virtual double LineHeight(const Font& font) const = 0;
};

class FontCatalog {
 public:
  virtual ~FontCatalog() = default;

  // Every installed family, each once, in the order in which the system names them.
  virtual std::vector<std::string> Families() const = 0;

  // True when the family can be used for printing: it is installed, or stands for an installed one.
  virtual bool CanPrint(const std::string& family) const = 0;
};

}  // namespace Morvane
