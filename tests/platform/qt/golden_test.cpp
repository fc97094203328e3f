#include "tests/hand/golden.h"

#include <gtest/gtest.h>

#include <QPainter>

#include "platform/qt/pictures/artwork.h"

namespace Morvane {
namespace {

// A piece of a window: a caption, a ruling of light lines, an icon.
struct Piece {
  double captionLeft = 10;
  int captionEnd = 200;
  int missingLine = -1;
  int iconLeft = 150;
};

QImage Painted(const Piece& piece, double ratio) {
  QImage image((QSizeF(200, 60) * ratio).toSize(), QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(QColor(239, 239, 239));
  QPainter painter(&image);
  painter.setFont(QFont("Liberation Sans", 10));
  painter.setClipRect(QRectF(0, 0, piece.captionEnd, 60));
  painter.drawText(QPointF(piece.captionLeft, 20), "Scelta immagine");
  painter.setClipping(false);
  painter.setPen(QColor(170, 170, 170));
  for (int line = 0; line < 30; ++line)
    if (line != piece.missingLine) painter.drawLine(5 + 4 * line, 40, 5 + 4 * line, 50);
  ArtworkIcon("stampa").paint(&painter, piece.iconLeft, 10, 24, 24);
  return image;
}

// The column behind the caption's last ink.
int EndOfCaption() {
  const QImage image = Painted({}, 1);
  int end = 0;
  for (int x = 0; x < 140; ++x)
    for (int y = 0; y < 30; ++y)
      if (qGray(image.pixel(x, y)) < 128) end = x + 1;
  return end;
}

TEST(GoldenTest, SeesWhatIsCutMissingOrMovedAndNotHowAnEdgeIsSmoothed) {
  for (const double ratio : {1.0, 2.0}) {
    const QImage held = Painted({}, ratio);
    const auto seen = [&](const Piece& piece) { return !SeenAtAGlance(held, Painted(piece, ratio)).empty(); };
    EXPECT_FALSE(seen({}));
    EXPECT_FALSE(seen({.captionLeft = 10.25}));
    EXPECT_TRUE(seen({.captionLeft = 12}));
    EXPECT_TRUE(seen({.captionEnd = EndOfCaption() - 2}));
    EXPECT_TRUE(seen({.missingLine = 12}));
    EXPECT_TRUE(seen({.iconLeft = 153}));
  }
}

TEST(ArtworkTest, IconsAreDrawnForThePixelsOfTheScreen) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    QImage seen((QSizeF(24, 24) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    seen.setDevicePixelRatio(ratio);
    seen.fill(Qt::transparent);
    QPainter painter(&seen);
    ArtworkIcon("stampa").paint(&painter, 0, 0, 24, 24);
    painter.end();
    EXPECT_EQ(seen, ArtworkPixmap("stampa", {24, 24}, ratio).toImage()) << ratio;
  }
}

}  // namespace
}  // namespace Morvane
