#include "tests/hand/golden.h"

#include <gtest/gtest.h>

#include <QPainter>

#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/program_style.h"

namespace Morvane {
namespace {

// A piece of a window: an icon, a caption whose end may be cut, a ruling of light lines, one of which may be
// missing.
QImage Piece(double ratio, double captionLeft, int captionEnd = 200, int missingLine = -1) {
  QImage image((QSizeF(200, 60) * ratio).toSize(), QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(QColor(239, 239, 239));
  QPainter painter(&image);
  ArtworkIcon("stampa").paint(&painter, 150, 30, 24, 24);
  painter.setFont(QFont("Liberation Sans", 10));
  painter.drawText(QPointF(captionLeft, 20), "Scelta immagine");
  painter.fillRect(captionEnd, 0, 200, 25, QColor(239, 239, 239));
  painter.setPen(QColor(170, 170, 170));
  for (int line = 0; line < 30; ++line)
    if (line != missingLine) painter.drawLine(5 + 4 * line, 40, 5 + 4 * line, 50);
  return image;
}

TEST(GoldenTest, SeesWhatIsCutMissingOrMovedAndNotHowAnEdgeIsSmoothed) {
  for (const double ratio : {1.0, 2.0}) {
    const QImage held = Piece(ratio, 10);
    const auto differs = [&](const QImage& seen) { return !SeenAtAGlance(held, seen).empty(); };
    int cut = 200;  // at the end of the caption
    while (Piece(ratio, 10, cut) == held) --cut;
    EXPECT_FALSE(differs(Piece(ratio, 10.25)));
    EXPECT_TRUE(differs(Piece(ratio, 12)));
    EXPECT_TRUE(differs(Piece(ratio, 10, 200, 12)));
    EXPECT_TRUE(differs(Piece(ratio, 10, cut - 2)));
  }
}

TEST(ProgramStyleTest, HasItsOwnSignForEntriesThatFindNoRoomAndForNothingElse) {
  const auto sign = [](QStyle::StandardPixmap which) {
    return ProgramStyle().standardIcon(which, nullptr, nullptr).pixmap(16).toImage();
  };
  const QImage own = ArtworkIcon("altri").pixmap(16).toImage();
  EXPECT_EQ(sign(QStyle::SP_ToolBarHorizontalExtensionButton), own);
  EXPECT_NE(sign(QStyle::SP_DirOpenIcon), own);
}

}  // namespace
}  // namespace Morvane
