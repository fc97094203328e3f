#pragma once

#include <string>

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

}  // namespace Morvane
