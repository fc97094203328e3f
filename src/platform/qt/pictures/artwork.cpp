#include "platform/qt/pictures/artwork.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>
#include <memory>

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

class ArtworkIconEngine : public QIconEngine {
 public:
  explicit ArtworkIconEngine(QString file) : file_(std::move(file)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const double ratio = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, scaledPixmap(rect.size() * ratio, mode, state, ratio));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }

  // The selected mode is drawn like the normal one: what is selected has a picture of its own where it
  // matters.
  QPixmap scaledPixmap(const QSize& devicePixels, QIcon::Mode mode, QIcon::State, qreal) override {
    const QPixmap drawn = Render(file_, devicePixels);
    if (mode != QIcon::Disabled) return drawn;
    QStyleOption option;
    option.palette = QApplication::palette();
    return QApplication::style()->generatedIconPixmap(QIcon::Disabled, drawn, &option);
  }

  QIconEngine* clone() const override { return std::make_unique<ArtworkIconEngine>(file_).release(); }

 private:
  const QString file_;
};

}  // namespace

QIcon ArtworkIcon(const std::string& key) {
  const QString file = ArtworkFile(key);
  if (file.isEmpty()) return {};
  return QIcon(std::make_unique<ArtworkIconEngine>(file).release());  // the icon owns its engine
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
