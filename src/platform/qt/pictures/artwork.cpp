#include "platform/qt/pictures/artwork.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace Morvane {
namespace {

constexpr QSize kPointerSize(32, 32);  // logical pixels, as is the next
constexpr QPoint kPointerTip(12, 2);

QString ArtworkFile(const std::string& key) {
  if (key.empty()) return {};
  const QString file = ":/images/" + QString::fromStdString(key) + ".svg";
  return QFile::exists(file) ? file : QString();
}

// Drawn once for each size: a window that changes its own paints all its buttons at each step.
QPixmap Render(const QString& file, QSize devicePixels) {
  const QString key = QString("%1 %2x%3").arg(file).arg(devicePixels.width()).arg(devicePixels.height());
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  pixmap = QPixmap(devicePixels);
  if (pixmap.isNull()) return pixmap;
  pixmap.fill(Qt::transparent);
  QSvgRenderer renderer(file);
  renderer.setAspectRatioMode(Qt::IgnoreAspectRatio);
  QPainter painter(&pixmap);
  renderer.render(&painter, QRectF(QPointF(), QSizeF(devicePixels)));
  painter.end();
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

}  // namespace

QIcon ArtworkIcon(const std::string& key) {
  return QIcon(ArtworkFile(key));
}

QPixmap ArtworkPixmap(const std::string& key, QSize size, double pixelRatio) {
  const QString file = ArtworkFile(key);
  if (file.isEmpty() || size.isEmpty()) return {};
  QPixmap pixmap = Render(file, (QSizeF(size) * pixelRatio).toSize());
  pixmap.setDevicePixelRatio(pixelRatio);
  return pixmap;
}

QCursor ArtworkPointer(const std::string& key) {
  const QPixmap image = ArtworkPixmap(key, kPointerSize, qGuiApp->devicePixelRatio());
  if (image.isNull()) return QCursor(Qt::PointingHandCursor);
  return QCursor(image, kPointerTip.x(), kPointerTip.y());
}

}  // namespace Morvane
