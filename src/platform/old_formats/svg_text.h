#pragma once

#include <string>
#include <string_view>

namespace Morvane {

struct SvgBox {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

// An SVG of that size, in whole twips, around the drawing; what the viewBox holds is what shows.
std::string SvgDocument(double widthTwips, double heightTwips, const SvgBox& viewBox,
                        std::string_view drawing);

// Text with the characters that mean something in XML written as entities.
std::string XmlText(std::string_view text);

// A number as SVG writes it, whatever the locale.
std::string SvgNumber(double value);

}  // namespace Morvane
