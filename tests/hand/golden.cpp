#include "tests/hand/golden.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPolygon>
#include <cstdlib>

namespace Morvane {
namespace {

// Levels of a colour channel, and pixels: room for the roundings of another processor or a mended font
// library. Builds, vector units and locales of one machine agree to the last bit.
constexpr int kSmoothing = 8;
constexpr int kStrayPixels = 3;

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

bool Differ(QRgb a, QRgb b) {
  for (const int channel : {0, 8, 16, 24}) {
    if (std::abs(static_cast<int>(a >> channel & 0xFFU) - static_cast<int>(b >> channel & 0xFFU)) >
        kSmoothing)
      return true;
  }
  return false;
}

QPolygon Difference(const QImage& held, const QImage& seen) {
  QPolygon different;
  for (int y = 0; y < seen.height(); ++y) {
    for (int x = 0; x < seen.width(); ++x) {
      if (Differ(held.pixel(x, y), seen.pixel(x, y))) different << QPoint(x, y);
    }
  }
  return different;
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

}  // namespace

void ExpectPicture(const std::string& name, const QImage& seen) {
  const std::string file = "docs/pictures/" + name;
  const QString path = Here(file + ".png");
  const QImage held(path);
  const QSize whole = held.size().expandedTo(seen.size());
  const QImage picture = OnCanvas(seen, whole);
  const QPolygon different = Difference(OnCanvas(held, whole), picture);
  constexpr int kSmallestFile = 0;
  const QString now = Seen(file + ".png");
  const QString marked = Seen(file + "-differs.png");
  if (different.size() <= kStrayPixels) {
    for (const QString& old : {now, marked}) QFile::remove(old);
    return;
  }
  ASSERT_TRUE(seen.save(now, nullptr, kSmallestFile));
  ASSERT_TRUE(Marked(picture, different).save(marked));
  const double percent = 100.0 * static_cast<double>(different.size()) / (whole.width() * whole.height());
  ADD_FAILURE() << percent << " % (" << different.size() << " pixels) differ from " << path.toStdString()
                << "\n  seen:  " << now.toStdString() << "\n  where: " << marked.toStdString();
}

}  // namespace Morvane
