#include <gmock/gmock.h>

#include <QBitmap>
#include <QDir>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QRawFont>
#include <QRegion>
#include <limits>

#include "platform/qt/painting/drawing_painter.h"
#include "platform/qt/painting/qt_font_catalog.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture.h"

namespace Morvane {
namespace {

QImage Painted(const DrawingList& drawing, int side, double pixelRatio = 1) {
  QImage screen(side, side, QImage::Format_RGB32);
  screen.setDevicePixelRatio(pixelRatio);
  screen.fill(Qt::white);
  PaintCache cache;
  QPainter painter(&screen);
  painter.scale(1 / 15.0, 1 / 15.0);
  PaintDrawing(painter, drawing, cache);
  return screen;
}

TEST(DrawingPainterTest, ShapesMayHaveNegativeSizesAndReachBeyondAllNumbers) {
  EXPECT_EQ(Painted({BoxShape{{900, 900, -700, -600}, {}, true}}, 80),
            Painted({BoxShape{{200, 300, 700, 600}, {}, true}}, 80));
  const double far = std::numeric_limits<double>::infinity();
  const QImage image =
      Painted({BoxShape{{150, 150, far, 1e300}, {255, 0, 0}, true}, LineShape{300, 300, 1e300, 300, {}}}, 80);
  EXPECT_TRUE(image.pixelColor(9, 9) == Qt::white && image.pixelColor(10, 10) == Qt::red);
  EXPECT_TRUE(image.pixelColor(79, 79) == Qt::red && image.pixelColor(70, 20) == Qt::black);
}

// Underlined text shows its width on the screen, whatever its letters are.
TEST(QtTextMetricsTest, WidthsAreExactlyProportionalAndThoseThatArePainted) {
  const QtTextMetrics metrics;
  const std::string text = "Stampato con AVATAR Wolff 1234 è qui";
  for (const double points : {7.0, 13.5, 40.0}) {
    const Font font{"Arial", points, false, false, true};
    Font reference = font;
    reference.size = 1;
    EXPECT_NEAR(metrics.Width(font, text), points * metrics.Width(reference, text), 1e-6);
    EXPECT_NEAR(metrics.LineHeight(font), points * metrics.LineHeight(reference), 1e-6);
    const double pixels = metrics.Width(font, text) / 15 * 4;
    const QImage image = Painted({TextShape{0, 0, text, font, {}}}, 4400, 4);
    const QImage ink = image.createMaskFromColor(qRgb(255, 255, 255), Qt::MaskInColor);
    EXPECT_NEAR(QRegion(QBitmap::fromImage(ink)).boundingRect().width(), pixels, pixels * 0.005 + 1)
        << points;
  }
}

// Lines of one text are laid out once for each style.
TEST(QtTextMetricsTest, NoLineIsPaintedInTheStyleOfAnother) {
  DrawingList lines;
  for (int style = 0; style < 8; ++style) {
    const Font font{"Arial", 12, (style & 1) != 0, (style & 2) != 0, (style & 4) != 0};
    lines.emplace_back(TextShape{0, style * 400.0, "Stampato", font, {}});
  }
  const QImage forwards = Painted(lines, 240);
  std::reverse(lines.begin(), lines.end());
  EXPECT_EQ(Painted(lines, 240), forwards);
}

TEST(PictureCacheTest, AboveTheLimitThePictureThatWasNotAskedForLongestIsDecodedAnew) {
  const QImage image(40, 40, QImage::Format_RGB32);
  PicturePtr pictures[3];
  for (PicturePtr& one : pictures) one = std::make_shared<FilePicture>(QByteArray(), image.size(), image);
  PictureCache holdsTwo(2 * 20 * 20 * 4);
  const auto ask = [&](int n) { return holdsTwo.Image(pictures[n], {20, 20}).cacheKey(); };
  const qint64 first = ask(0);
  const qint64 second = ask(1);
  EXPECT_EQ(ask(0), first);
  ask(2);
  EXPECT_EQ(ask(0), first);
  EXPECT_NE(ask(1), second);
}

// The machine may have the same family from two makers.
TEST(QtFontCatalogTest, FamiliesAndStandInsAreListedOnceAndPrintable) {
  QFile font(QFileInfo(MORVANE_FONTS).dir().filePath("LiberationSerif-Regular.ttf"));
  ASSERT_TRUE(font.open(QFile::ReadOnly));
  QByteArray bytes = font.readAll();
  const qsizetype maker = bytes.indexOf(QRawFont(bytes, 12).fontTable("OS/2")) + 58;
  const int second = QFontDatabase::addApplicationFontFromData(bytes.replace(maker, 4, "APPL"));
  const QtFontCatalog fonts;
  const std::vector<std::string> families = fonts.Families();
  for (const char* family : {"Arial", "Liberation Serif"})
    EXPECT_EQ(std::count(families.begin(), families.end(), family), 1) << family;
  EXPECT_TRUE(fonts.CanPrint("Arial") && fonts.CanPrint("liberation sans"));
  EXPECT_FALSE(fonts.CanPrint("") || fonts.CanPrint("Carattere che non esiste"));
  EXPECT_TRUE(QFontDatabase::removeApplicationFont(second));
}

}  // namespace
}  // namespace Morvane
