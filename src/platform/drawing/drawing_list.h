#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/color.h"
#include "platform/font.h"
#include "platform/picture.h"

namespace Morvane {

// A rectangle in twips, y downwards; width and height may be negative, the corners are then exchanged.
struct TwipsBox {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;

  bool operator==(const TwipsBox&) const = default;
};

// The shapes that a surface can hold. Lines are hairlines: one dot of a screen, 1/600 inch on paper.
struct LineShape {
  double x1, y1, x2, y2;
  Color color;
};
struct BoxShape {
  TwipsBox box;
  Color color;
  bool filled;
};
struct EllipseShape {
  TwipsBox box;
  Color color;
};
struct PictureShape {
  TwipsBox box;
  PicturePtr picture;
};
struct TextShape {
  double left, top;  // of the line's top left corner
  std::string text;  // one line, UTF-8
  Font font;         // size in points on the surface
  Color color;
};

using Shape = std::variant<LineShape, BoxShape, EllipseShape, PictureShape, TextShape>;

// What was drawn on a surface since it was last cleared, in drawing order. Screen and paper paint the same
// list, and tests read it.
using DrawingList = std::vector<Shape>;

}  // namespace Morvane
