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

QImage Averaged(const QImage& image, QSize size) {
  return image.size() == size ? image : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
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
  return overviewHoldsIt ? Averaged(overview_, size) : PictureReader(file_).Read(size);
}

double PixelPicture::WidthTwips() const {
  return kTwipsPerPixel * image_.width();
}

double PixelPicture::HeightTwips() const {
  return kTwipsPerPixel * image_.height();
}

QImage PixelPicture::Decode(QSize pixels) const {
  return Averaged(image_, pixels.boundedTo(image_.size()));
}

SvgPicture::SvgPicture(std::unique_ptr<QSvgRenderer> renderer, double widthTwips, double heightTwips)
    : renderer_(std::move(renderer)), widthTwips_(widthTwips), heightTwips_(heightTwips) {}

SvgPicture::~SvgPicture() = default;

QImage SvgPicture::Decode(QSize pixels) const {
  QImage image(Within(PictureLimits::kDrawnPixels, pixels), QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return image;
  image.fill(Qt::transparent);
  QPainter painter(&image);
  renderer_->render(&painter, QRectF(image.rect()));
  return image;
}

}  // namespace Morvane
