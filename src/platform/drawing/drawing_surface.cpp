#include "platform/drawing/drawing_surface.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/units.h"

namespace Morvane {

namespace {

double TwipsPerUnit(ScaleMode mode) {
  switch (mode) {
    case ScaleMode::Inches:
      return kTwipsPerInch;
    case ScaleMode::Millimetres:
      return kTwipsPerMillimetre;
    default:
      return 1.0;
  }
}

// Calls `visit` with each line of a text; a line end at the very end opens one more, empty, line.
template <typename Visitor>
void ForEachLine(const std::string& text, Visitor visit) {
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find("\r\n", start);
    visit(text.substr(start, end == std::string::npos ? end : end - start));
    if (end == std::string::npos) return;
    start = end + 2;
  }
}

// Wider than any printer's margin: its surface begins at the printable corner, and the sheet before that.
constexpr double kMarginTwips = kTwipsPerInch;
constexpr double kLongestText = 1e6;  // twips

struct Sheet {
  double left, top, right, bottom;  // twips
};

// False where a side is no number.
bool Overlap(double from, double to, double low, double high) {
  return (from <= high && to >= low) || (to <= high && from >= low);
}

bool Touches(const TwipsBox& box, const Sheet& sheet) {
  return Overlap(box.left, box.left + box.width, sheet.left, sheet.right) &&
         Overlap(box.top, box.top + box.height, sheet.top, sheet.bottom);
}

bool LiesInside(const Sheet& sheet, const TwipsBox& box) {
  const auto [left, right] = std::minmax({box.left, box.left + box.width});
  const auto [top, bottom] = std::minmax({box.top, box.top + box.height});
  return left < sheet.left && top < sheet.top && right > sheet.right && bottom > sheet.bottom;
}

bool LiesInsideEllipse(const Sheet& sheet, const TwipsBox& box) {
  const double x = std::max(std::abs(sheet.left - box.left - box.width / 2),
                            std::abs(sheet.right - box.left - box.width / 2));
  const double y = std::max(std::abs(sheet.top - box.top - box.height / 2),
                            std::abs(sheet.bottom - box.top - box.height / 2));
  return std::hypot(2 * x / box.width, 2 * y / box.height) < 1;
}

// Whether any of a shape lies on the sheet. A line around the whole sheet does not.
struct Shows {
  const Sheet sheet;

  bool operator()(const LineShape& line) const {
    return Touches({line.x1, line.y1, line.x2 - line.x1, line.y2 - line.y1}, sheet);
  }
  bool operator()(const BoxShape& box) const {
    return Touches(box.box, sheet) && (box.filled || !LiesInside(sheet, box.box));
  }
  bool operator()(const EllipseShape& ellipse) const {
    return Touches(ellipse.box, sheet) && !LiesInsideEllipse(sheet, ellipse.box);
  }
  bool operator()(const PictureShape& picture) const { return Touches(picture.box, sheet); }
  // How far it goes is not worth measuring.
  bool operator()(const TextShape& text) const {
    return Overlap(text.left, text.left, sheet.left - kLongestText, sheet.right) &&
           Overlap(text.top, text.top, sheet.top - kLongestText, sheet.bottom);
  }
};

}  // namespace

void DrawingSurface::SetSize(double widthTwips, double heightTwips) {
  widthTwips_ = widthTwips;
  heightTwips_ = heightTwips;
}

void DrawingSurface::SetScaleMode(ScaleMode mode) {
  mode_ = mode;
  left_ = 0;
  top_ = 0;
}

void DrawingSurface::Scale(double x1, double y1, double x2, double y2) {
  if (x1 == x2 || y1 == y2) {
    throw RuntimeError(ErrorNumber::InvalidPropertyValue, "Scala della superficie non valida.");
  }
  mode_ = ScaleMode::User;
  left_ = x1;
  top_ = y1;
  userWidth_ = x2 - x1;
  userHeight_ = y2 - y1;
}

double DrawingSurface::TwipsPerUnitX() const {
  return mode_ == ScaleMode::User ? widthTwips_ / userWidth_ : TwipsPerUnit(mode_);
}

double DrawingSurface::TwipsPerUnitY() const {
  return mode_ == ScaleMode::User ? heightTwips_ / userHeight_ : TwipsPerUnit(mode_);
}

double DrawingSurface::ScaleWidth() const {
  return mode_ == ScaleMode::User ? userWidth_ : widthTwips_ / TwipsPerUnit(mode_);
}

double DrawingSurface::ScaleHeight() const {
  return mode_ == ScaleMode::User ? userHeight_ : heightTwips_ / TwipsPerUnit(mode_);
}

double DrawingSurface::UserX(double twips) const {
  return left_ + twips / TwipsPerUnitX();
}
double DrawingSurface::UserY(double twips) const {
  return top_ + twips / TwipsPerUnitY();
}
double DrawingSurface::ToTwipsX(double x) const {
  return (x - left_) * TwipsPerUnitX();
}
double DrawingSurface::ToTwipsY(double y) const {
  return (y - top_) * TwipsPerUnitY();
}

void DrawingSurface::SetFontSize(double points) {
  if (!(points > 0)) {
    throw RuntimeError(ErrorNumber::InvalidPropertyValue, "La dimensione del carattere non è valida.");
  }
  font_.size = points;
}

void DrawingSurface::Add(Shape shape) {
  const Sheet sheet{-kMarginTwips, -kMarginTwips, widthTwips_ + kMarginTwips, heightTwips_ + kMarginTwips};
  if (!std::visit(Shows{sheet}, shape)) return;
  drawing_.push_back(std::move(shape));
  OnDrawn();
}

DrawingList DrawingSurface::TakeDrawing() {
  DrawingList taken = std::exchange(drawing_, {});
  Cls();
  return taken;
}

void DrawingSurface::Cls() {
  drawing_.clear();
  CurrentX = 0;
  CurrentY = 0;
  OnDrawn();
}

void DrawingSurface::Line(double x1, double y1, double x2, double y2, LineStyle style,
                          std::optional<Color> color) {
  const Color ink = color.value_or(ForeColor);
  const double left = ToTwipsX(x1);
  const double top = ToTwipsY(y1);
  const double right = ToTwipsX(x2);
  const double bottom = ToTwipsY(y2);
  CurrentX = x2;
  CurrentY = y2;
  if (style == LineStyle::Line) {
    Add(LineShape{left, top, right, bottom, ink});
  } else {
    Add(BoxShape{{left, top, right - left, bottom - top}, ink, style == LineStyle::FilledBox});
  }
}

void DrawingSurface::Circle(double x, double y, double radius, Color color, double aspect) {
  if (!(radius >= 0) || !(aspect >= 0) || !std::isfinite(radius) || !std::isfinite(aspect)) {
    throw RuntimeError(ErrorNumber::InvalidProcedureCall, "L'ellisse non può essere disegnata.");
  }
  const double horizontal = aspect <= 1 ? radius : radius / aspect;
  const double vertical = aspect <= 1 ? radius * aspect : radius;
  const double left = ToTwipsX(x - horizontal);
  const double top = ToTwipsY(y - vertical);
  CurrentX = x;
  CurrentY = y;
  Add(EllipseShape{{left, top, ToTwipsX(x + horizontal) - left, ToTwipsY(y + vertical) - top}, color});
}

void DrawingSurface::PaintPicture(const PicturePtr& picture, double x, double y, double width,
                                  double height) {
  if (!picture) throw RuntimeError(ErrorNumber::InvalidPicture, "Immagine non valida.");
  const double left = ToTwipsX(x);
  const double top = ToTwipsY(y);
  Add(PictureShape{{left, top, ToTwipsX(x + width) - left, ToTwipsY(y + height) - top}, picture});
}

void DrawingSurface::Print(const std::string& text) {
  const double lineHeight = TextHeight(text);
  if (!text.empty()) Add(TextShape{ToTwipsX(CurrentX), ToTwipsY(CurrentY), text, font_, ForeColor});
  CurrentX = left_;
  CurrentY += lineHeight;
}

double DrawingSurface::TextWidth(const std::string& text) const {
  double widest = 0;
  ForEachLine(text, [&](const std::string& line) { widest = std::max(widest, metrics_.Width(font_, line)); });
  return widest / std::abs(TwipsPerUnitX());
}

double DrawingSurface::TextHeight(const std::string& text) const {
  int lines = 0;
  ForEachLine(text, [&](const std::string&) { ++lines; });
  return lines * metrics_.LineHeight(font_) / std::abs(TwipsPerUnitY());
}

}  // namespace Morvane
