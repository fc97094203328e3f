#include "tests/hand/golden.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPolygon>
#include <algorithm>

namespace Morvane {
namespace {

// Levels of a colour channel that nobody tells apart, and pixels that nobody sees.
constexpr int kLevels = 8;
constexpr int kStrayPixels = 3;
// Of the levels that meet at an edge, how many may go to its smoothing: a third.
constexpr int kPartForSmoothing = 3;

QString Here(const std::string& file) {
  return QString::fromStdString(MORVANE_SOURCE_DIR "/" + file);
}

QString Seen(const std::string& file) {
  QDir().mkpath(MORVANE_SEEN "/docs/pictures");
  return QString::fromStdString(MORVANE_SEEN "/" + file);
}

// What the picture doesn't reach is transparent.
QImage OnCanvas(QImage picture, QSize size) {
  QImage canvas(size, QImage::Format_ARGB32);
  canvas.fill(Qt::transparent);
  picture.setDevicePixelRatio(1);
  QPainter(&canvas).drawImage(0, 0, picture);
  return canvas;
}

// Whether the picture has this colour, or ones on both sides of it, at most a pixel from the place.
bool IsThere(QRgb colour, const QImage& picture, QPoint place) {
  const QRect around = QRect(place - QPoint(1, 1), QSize(3, 3)) & picture.rect();
  for (const int channel : {0, 8, 16, 24}) {
    const auto level = [channel](QRgb pixel) { return static_cast<int>(pixel >> channel & 0xFFU); };
    int least = 255;
    int most = 0;
    for (int y = around.top(); y <= around.bottom(); ++y) {
      for (int x = around.left(); x <= around.right(); ++x) {
        least = std::min(least, level(picture.pixel(x, y)));
        most = std::max(most, level(picture.pixel(x, y)));
      }
    }
    const int off = std::max(least - level(colour), level(colour) - most);
    if (off > kLevels + (most - least + std::max(off, 0)) / kPartForSmoothing) return false;
  }
  return true;
}

// The picture pale, with what differs in red and a frame around it.
QImage Marked(QImage picture, const QPolygon& different) {
  QPainter painter(&picture);
  painter.fillRect(picture.rect(), QColor(255, 255, 255, 170));
  painter.setPen(Qt::red);
  painter.drawPoints(different);
  painter.drawRect(different.boundingRect().adjusted(-5, -5, 5, 5));
  return picture;
}

// Where the pictures differ at a glance, in device pixels; empty where nobody would see it. Colours count
// that are not met within a pixel of their place: a caption that lost two columns, a line that is missing,
// what stands two pixels off. How a release of the toolkit or the font library smooths an edge doesn't.
QPolygon SeenAtAGlance(const QImage& held, const QImage& seen) {
  const QSize whole = held.size().expandedTo(seen.size());
  const QImage a = OnCanvas(held, whole);
  const QImage b = OnCanvas(seen, whole);
  QPolygon different;
  for (int y = 0; y < whole.height(); ++y) {
    for (int x = 0; x < whole.width(); ++x) {
      const QRgb was = a.pixel(x, y);
      const QRgb is = b.pixel(x, y);
      if (was != is && !(IsThere(was, b, {x, y}) && IsThere(is, a, {x, y}))) different << QPoint(x, y);
    }
  }
  return different.size() > kStrayPixels ? different : QPolygon();
}

}  // namespace

void ExpectPicture(const std::string& name, const QImage& seen, const QRegion& others) {
  const std::string file = "docs/pictures/" + name;
  const QString path = Here(file + ".png");
  const QImage held(path);
  QPolygon different = SeenAtAGlance(held, seen);
  different.removeIf([&](const QPoint& pixel) { return others.contains(pixel); });
  constexpr int kSmallestFile = 0;
  const QString now = Seen(file + ".png");
  const QString marked = Seen(file + "-differs.png");
  if (different.isEmpty()) {
    for (const QString& old : {now, marked}) QFile::remove(old);
    return;
  }
  ASSERT_TRUE(seen.save(now, nullptr, kSmallestFile));
  const QImage picture = OnCanvas(seen, held.size().expandedTo(seen.size()));
  ASSERT_TRUE(Marked(picture, different).save(marked));
  ADD_FAILURE() << different.size() << " pixels differ from " << path.toStdString()
                << "\n  seen:  " << now.toStdString() << "\n  where: " << marked.toStdString();
}

}  // namespace Morvane
