#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/drawing/drawing_list.h"
#include "platform/text_metrics.h"

namespace Morvane {

enum class ScaleMode { User = 0, Twips = 1, Inches = 5, Millimetres = 6 };
enum class LineStyle { Line, Box, FilledBox };

// The one drawing target of the system: a picture control of a window, which keeps what is drawn on it, or
// the page of the printer. Coordinates are in the current scale and stay double precision until the device
// turns them into dots. A shape of which nothing lies on the sheet is not kept.
class DrawingSurface {
 public:
  explicit DrawingSurface(const TextMetrics& metrics) : metrics_(metrics) {}
  DrawingSurface(const DrawingSurface&) = delete;
  DrawingSurface& operator=(const DrawingSurface&) = delete;

  // Called at each change of what is drawn.
  std::function<void()> OnDrawn = [] {};

  // Size in twips. A scale set by Scale() keeps its corners when the size changes.
  void SetSize(double widthTwips, double heightTwips);
  double Width() const { return widthTwips_; }
  double Height() const { return heightTwips_; }

  // Units from the top left corner of the surface.
  void SetScaleMode(ScaleMode mode);

  // User coordinates with these two corners. RuntimeError InvalidPropertyValue when a side is 0.
  void Scale(double x1, double y1, double x2, double y2);
  double ScaleWidth() const;
  double ScaleHeight() const;

  // A place of the surface, in twips, in the current scale.
  double UserX(double twips) const;
  double UserY(double twips) const;

  double CurrentX = 0;
  double CurrentY = 0;
  Color ForeColor;

  // Size in points; the setter throws RuntimeError InvalidPropertyValue for a size of 0 or below.
  const Font& GetFont() const { return font_; }
  void SetFontName(const std::string& name) { font_.name = name; }
  void SetFontSize(double points);
  void SetFontBold(bool on) { font_.bold = on; }
  void SetFontItalic(bool on) { font_.italic = on; }
  void SetFontUnderline(bool on) { font_.underline = on; }

  // Clears the surface and puts the current point at the origin.
  void Cls();

  // Without a colour the line takes ForeColor.
  void Line(double x1, double y1, double x2, double y2, LineStyle style = LineStyle::Line,
            std::optional<Color> color = std::nullopt);

  // An ellipse. `aspect` is vertical over horizontal; the radius is the horizontal semi-axis when it is at
  // most 1 and the vertical one when it is above. RuntimeError InvalidProcedureCall for an aspect or radius
  // that is negative or no number.
  void Circle(double x, double y, double radius, Color color, double aspect = 1.0);

  // Paints the picture stretched to exactly this box. RuntimeError InvalidPicture without a picture.
  void PaintPicture(const PicturePtr& picture, double x, double y, double width, double height);

  // Writes one line with its top left corner at the current point, then leaves CurrentX at the left edge and
  // CurrentY one line lower. An empty text moves down too.
  void Print(const std::string& text);

  // In the current scale. Text of several lines has the width of its widest and the height of all.
  double TextWidth(const std::string& text) const;
  double TextHeight(const std::string& text) const;

  const DrawingList& Drawing() const { return drawing_; }
  // Hands the drawing over and clears the surface.
  DrawingList TakeDrawing();

 private:
  double ToTwipsX(double x) const;
  double ToTwipsY(double y) const;
  double TwipsPerUnitX() const;
  double TwipsPerUnitY() const;
  void Add(Shape shape);

  const TextMetrics& metrics_;
  double widthTwips_ = 0;
  double heightTwips_ = 0;
  ScaleMode mode_ = ScaleMode::Twips;
  double left_ = 0;  // corners of the user scale; the others are derived from the mode
  double top_ = 0;
  double userWidth_ = 1;
  double userHeight_ = 1;
  Font font_;
  DrawingList drawing_;
};

}  // namespace Morvane
