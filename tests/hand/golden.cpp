#include "tests/hand/golden.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPainter>
#include <algorithm>

namespace Morvane {
namespace {

// Levels of a colour channel that nobody tells apart, and pixels that nobody sees.
constexpr int kLevels = 12;
constexpr int kStrayPixels = 3;
// Of the levels that meet at an edge, how many may go to its smoothing: a half.
constexpr int kPartForSmoothing = 2;

// Of each colour channel the least or the most within a pixel.
QImage Around(const QImage& picture, QPainter::CompositionMode leastOrMost) {
  QImage around = picture;
  QPainter painter(&around);
  painter.setCompositionMode(leastOrMost);
  for (const int x : {-1, 0, 1})
    for (const int y : {-1, 0, 1}) painter.drawImage(x, y, picture);
  return around;
}

// Where the picture has a colour that the other, of its size, hasn't, nor ones on both sides of it, at most a
// pixel from the place: a caption that lost two columns, a line that is missing, what stands two pixels off.
// How a release of the toolkit or the font library smooths an edge doesn't count.
QRegion Lacking(const QImage& picture, const QImage& other, QRegion where = {}) {
  const QImage least = Around(other, QPainter::CompositionMode_Darken);
  const QImage most = Around(other, QPainter::CompositionMode_Lighten);
  for (int y = 0; y < picture.height(); ++y) {
    for (int byte = 0; byte < picture.bytesPerLine(); ++byte) {
      const int from = least.scanLine(y)[byte];
      const int to = most.scanLine(y)[byte];
      const int level = picture.scanLine(y)[byte];
      if (std::max(from - level, level - to) > kLevels + (to - from) / kPartForSmoothing)
        where += QRect(byte / 4, y, 1, 1);
    }
  }
  return where;
}

int PixelsOf(const QRegion& region) {
  int pixels = 0;
  for (const QRect& part : region) pixels += part.width() * part.height();
  return pixels;
}

// The picture pale, with what differs in red and a frame around it.
QImage Marked(QImage picture, const QRegion& different) {
  QPainter painter(&picture);
  painter.fillRect(picture.rect(), QColor(255, 255, 255, 170));
  painter.setPen(Qt::red);
  painter.drawRect(different.boundingRect().adjusted(-5, -5, 5, 5));
  painter.setClipRegion(different);
  painter.fillRect(picture.rect(), Qt::red);
  return picture;
}

}  // namespace

void ExpectPicture(const std::string& name, QImage seen, const QRegion& others) {
  const QString file = QString::fromStdString("docs/pictures/" + name);
  const QString now = MORVANE_SEEN "/" + file + ".png";
  const QString marked = MORVANE_SEEN "/" + file + "-differs.png";
  QDir().mkpath(MORVANE_SEEN "/docs/pictures");
  for (const QString& old : {now, marked}) QFile::remove(old);

  const QImage held = QImage(MORVANE_SOURCE_DIR "/" + file + ".png").convertToFormat(QImage::Format_RGB32);
  seen.convertTo(QImage::Format_RGB32);
  seen.setDevicePixelRatio(1);
  QRegion different = seen.rect();
  if (held.size() == seen.size()) different = Lacking(held, seen, Lacking(seen, held)) - others;
  if (PixelsOf(different) <= kStrayPixels) return;
  constexpr int kSmallestFile = 0;
  ASSERT_TRUE(seen.save(now, nullptr, kSmallestFile));
  ASSERT_TRUE(Marked(seen, different).save(marked));
  ADD_FAILURE() << PixelsOf(different) << " pixels differ from " << name << "\n  seen:  " << now.toStdString()
                << "\n  where: " << marked.toStdString();
}

}  // namespace Morvane
