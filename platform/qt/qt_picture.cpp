#include "platform/qt/qt_picture.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

#include "platform/units.h"

namespace Morvane {
namespace {

constexpr double kMostSvgPixels = 64e6;

QImage Averaged(const QImage& image, QSize size) {
  if (image.isNull() || image.size() == size) return image;
  return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

FilePicture::FilePicture(QByteArray bytes, QSize size, bool turned, int index)
    : bytes_(std::move(bytes)), size_(size), turned_(turned), index_(index) {}

double FilePicture::WidthTwips() const {
  return kTwipsPerPixel * (turned_ ? size_.height() : size_.width());
}

double FilePicture::HeightTwips() const {
  return kTwipsPerPixel * (turned_ ? size_.width() : size_.height());
}

QImage FilePicture::Decode(QSize pixels) const {
  QBuffer buffer;
  buffer.setData(bytes_);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (index_ > 0) reader.jumpToImage(index_);
  // The reader wants the size before the rotation. A JPEG decodes at the nearest eighth above it, the rest is
  // averaged.
  const QSize size = (turned_ ? pixels.transposed() : pixels).boundedTo(size_);
  if (size != size_) reader.setScaledSize(size);
  return reader.read();
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
  const double asked = static_cast<double>(pixels.width()) * pixels.height();
  const QSize size = asked > kMostSvgPixels ? pixels * std::sqrt(kMostSvgPixels / asked) : pixels;
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return image;
  image.fill(Qt::transparent);
  QPainter painter(&image);
  renderer_->render(&painter, QRectF(QPointF(), QSizeF(size)));
  return image;
}

QImage PictureCache::Image(const PicturePtr& picture, QSize pixels) {
  const auto known = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const Entry& entry) { return entry.picture.lock() == picture; });
  Entry entry{picture, QSize(), QImage()};
  if (known != entries_.end()) {
    entry = std::move(*known);
    entries_.erase(known);
  }
  if (entry.pixels != pixels) {
    const auto* decodable = dynamic_cast<const QtPicture*>(picture.get());
    entry.image = QImage();
    entry.image = decodable ? decodable->Decode(pixels) : QImage();
    entry.pixels = pixels;
  }
  const QImage image = entry.image;
  entries_.push_back(std::move(entry));
  DropUnused();
  return image;
}

void PictureCache::DropUnused() {
  std::erase_if(entries_, [](const Entry& entry) { return entry.picture.expired(); });
  std::size_t bytes = 0;
  for (const Entry& entry : entries_) bytes += static_cast<std::size_t>(entry.image.sizeInBytes());
  while (bytes > limitBytes_ && entries_.size() > 1) {
    bytes -= static_cast<std::size_t>(entries_.front().image.sizeInBytes());
    entries_.erase(entries_.begin());
  }
}

}  // namespace Morvane
