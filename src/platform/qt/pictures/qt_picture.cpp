#include "platform/qt/pictures/qt_picture.h"

#include <QPainter>
#include <QSvgRenderer>
#include <cmath>

#include "platform/qt/pictures/picture_limits.h"
#include "platform/qt/pictures/picture_reader.h"
#include "platform/units.h"

namespace Morvane {
namespace {

constexpr double kOverviewPixels = 512e3;  // 2 MB

// The same shape with at most this many pixels.
QSize Within(double mostPixels, QSize size) {
  const double share = mostPixels / (static_cast<double>(size.width()) * size.height());
  return share >= 1 ? size : (QSizeF(size) * std::sqrt(share)).toSize().expandedTo(QSize(1, 1));
}

}  // namespace

QSize FilePicture::OverviewSize(QSize size) {
  return Within(kOverviewPixels, size);
}

double FilePicture::WidthTwips() const {
  return kTwipsPerPixel * size_.width();
}

double FilePicture::HeightTwips() const {
  return kTwipsPerPixel * size_.height();
}

QImage FilePicture::Decode(QSize pixels) const {
  const QSize size = pixels.boundedTo(size_);
  const bool overviewHoldsIt = size.boundedTo(overview_.size()) == size;
  if (!overviewHoldsIt) return PictureReader(file_).Read(size);
  return overview_.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

SvgPicture::SvgPicture(std::unique_ptr<QSvgRenderer> renderer) : renderer_(std::move(renderer)) {}

SvgPicture::~SvgPicture() = default;

double SvgPicture::WidthTwips() const {
  return renderer_->defaultSize().width();
}

double SvgPicture::HeightTwips() const {
  return renderer_->defaultSize().height();
}

QImage SvgPicture::Decode(QSize pixels) const {
  QImage image(Within(PictureLimits::kDrawnPixels, pixels), QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return image;
  image.fill(Qt::transparent);
  QPainter painter(&image);
  renderer_->render(&painter, QRectF(image.rect()));
  return image;
}

}  // namespace Morvane
