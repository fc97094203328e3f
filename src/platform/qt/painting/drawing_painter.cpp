#include "platform/qt/painting/drawing_painter.h"

#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/units.h"

namespace Morvane {
namespace {

constexpr int kMostPixels = 100000;  // that a picture is decoded to, each way
constexpr double kPaperDotTwips = kTwipsPerInch / 600;
// Far outside every device, and a number that each step of the toolkit can hold.
constexpr double kFarthest = 1e7;
constexpr double kFinestPixelsPerTwip = 600 / kTwipsPerInch;

QColor ToQt(Color color) {
  return QColor(color.red, color.green, color.blue);
}

// Shapes are mapped to device pixels on a screen, where lines must lie on whole pixels whatever the device's
// pixel ratio is, and stay in twips on paper.
class Painting {
 public:
  Painting(QPainter& painter, PaintCache& cache, Pixels which)
      : painter_(painter),
        cache_(cache),
        which_(which),
        onPaper_(painter.paintEngine()->type() == QPaintEngine::Pdf),
        twips_(painter.worldTransform()),
        toPixels_(onPaper_ ? QTransform() : painter.deviceTransform()),
        pixels_(toPixels_.inverted() * twips_) {
    painter_.setRenderHint(QPainter::Antialiasing);
    // For one frame of many the nearest pixels will do; the toolkit spreads smooth ones over threads, picture
    // by picture.
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, which == Pixels::Exact);
    painter_.setBrush(Qt::NoBrush);
  }

  void operator()(const LineShape& line) {
    UseHairline(line.color);
    painter_.drawLine(OnDot({line.x1, line.y1}), OnDot({line.x2, line.y2}));
  }

  void operator()(const BoxShape& box) {
    UseHairline(box.color);
    const QRectF outline(OnDot({box.box.left, box.box.top}),
                         OnDot({box.box.left + box.box.width, box.box.top + box.box.height}));
    if (!box.filled) {
      painter_.drawRect(outline.normalized());
    } else {
      const double halfDot = onPaper_ ? 0 : 0.5;
      painter_.fillRect(outline.normalized().adjusted(-halfDot, -halfDot, halfDot, halfDot), ToQt(box.color));
    }
  }

  void operator()(const EllipseShape& ellipse) {
    UseHairline(ellipse.color);
    painter_.drawEllipse(InPixels(ellipse.box));
  }

  void operator()(const PictureShape& shape) {
    painter_.setWorldTransform(pixels_);
    const QRectF box = InPixels(shape.box);
    if (onPaper_) return DrawPicture(shape.picture, box, PaperDots(box));
    const QPoint corner(static_cast<int>(std::lround(box.left())), static_cast<int>(std::lround(box.top())));
    const QSize size(std::max(static_cast<int>(std::lround(box.right())) - corner.x(), 1),
                     std::max(static_cast<int>(std::lround(box.bottom())) - corner.y(), 1));
    DrawPicture(shape.picture, QRectF(QRect(corner, size)), size.boundedTo({kMostPixels, kMostPixels}));
  }

  void operator()(const TextShape& text) {
    const double scale = text.font.size * kTwipsPerPoint / kReferencePixels;
    painter_.setWorldTransform(QTransform(twips_).translate(text.left, text.top).scale(scale, scale));
    painter_.setPen(ToQt(text.color));
    const LaidOutLine& line = cache_.lines.LaidOut(text.font, text.text);
    for (const QGlyphRun& run : line.glyphs) painter_.drawGlyphRun({}, run);
    if (!line.underline.isEmpty()) painter_.fillRect(line.underline, ToQt(text.color));
  }

  // Those on paper are large and seldom in the cache.
  void DecodePictures(const DrawingList& drawing) {
    if (!onPaper_) return;
    std::vector<PictureCache::Wish> wishes;
    for (const Shape& shape : drawing) {
      const auto* const picture = std::get_if<PictureShape>(&shape);
      if (picture != nullptr) wishes.push_back({picture->picture, PaperDots(InPixels(picture->box))});
    }
    cache_.pictures.Prepare(wishes);
  }

  const std::vector<PicturePtr>& Undecodable() const { return undecodable_; }

 private:
  static QSize PaperDots(const QRectF& box) {
    const QSizeF dots = box.size() * kFinestPixelsPerTwip;
    return {AtLeastOne(dots.width()), AtLeastOne(dots.height())};
  }

  static int AtLeastOne(double pixels) {
    return static_cast<int>(std::clamp(std::ceil(pixels), 1.0, double{kMostPixels}));
  }

  void UseHairline(Color color) {
    painter_.setWorldTransform(pixels_);
    painter_.setPen(
        QPen(ToQt(color), onPaper_ ? kPaperDotTwips : 1, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  }

  // The middle of the pixel that holds a place of the drawing; on paper the place itself.
  QPointF OnDot(QPointF twips) const {
    const QPointF pixels = Near(toPixels_.map(twips));
    if (onPaper_) return pixels;
    return {std::floor(pixels.x()) + 0.5, std::floor(pixels.y()) + 0.5};
  }

  QRectF InPixels(const TwipsBox& box) const {
    return QRectF(Near(toPixels_.map(QPointF(box.left, box.top))),
                  Near(toPixels_.map(QPointF(box.left + box.width, box.top + box.height))))
        .normalized();
  }

  static QPointF Near(QPointF point) {
    return {std::clamp(point.x(), -kFarthest, kFarthest), std::clamp(point.y(), -kFarthest, kFarthest)};
  }

  void DrawPicture(const PicturePtr& picture, const QRectF& box, QSize pixels) {
    const QImage image = cache_.pictures.Image(picture, pixels, which_);
    if (image.isNull()) undecodable_.push_back(picture);
    painter_.drawImage(box, image);
  }

  QPainter& painter_;
  PaintCache& cache_;
  std::vector<PicturePtr> undecodable_;
  const Pixels which_;
  const bool onPaper_;
  const QTransform twips_;     // the world transform that was given
  const QTransform toPixels_;  // twips to device pixels
  const QTransform pixels_;    // the world transform under which a unit is a device pixel
};

}  // namespace

std::vector<PicturePtr> PaintDrawing(QPainter& painter, const DrawingList& drawing, PaintCache& cache,
                                     Pixels pixels) {
  painter.save();
  Painting painting(painter, cache, pixels);
  painting.DecodePictures(drawing);
  for (const Shape& shape : drawing) std::visit(painting, shape);
  painter.restore();
  return painting.Undecodable();
}

}  // namespace Morvane
