#include "platform/qt/pictures/qt_picture.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <QThreadPool>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/qt/pictures/jpeg.h"
#include "platform/qt/pictures/jpeg_segments.h"
#include "platform/units.h"

namespace Morvane {
namespace {

constexpr double kMostSvgPixels = 64e6;
constexpr double kMostOverviewPixels = 512e3;  // 2 MB
// A preview of 247 x 180 at twice the density; photos of 12 megapixels and more have it at an eighth.
constexpr double kMostPreviewPixels = 494.0 * 360;

bool Holds(QSize size, QSize other) {
  return other.boundedTo(size) == other;
}

QImage Averaged(const QImage& image, QSize size) {
  if (image.isNull() || image.size() == size) return image;
  return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// Screen and sheet carry no profile; a picture without one is sRGB already, and stays as it is.
QImage InSrgb(QImage image) {
  image.convertToColorSpace(QColorSpace::SRgb);
  return image;
}

QImage Turned(const QImage& image, QImageIOHandler::Transformations rotation) {
  const QImage mirrored = image.mirrored(rotation.testFlag(QImageIOHandler::TransformationMirror),
                                         rotation.testFlag(QImageIOHandler::TransformationFlip));
  const bool quarter = rotation.testFlag(QImageIOHandler::TransformationRotate90);
  return quarter ? mirrored.transformed(QTransform().rotate(90)) : mirrored;
}

}  // namespace

FilePicture::FilePicture(QByteArrayView file, const Facts& facts)
    : file_(file), facts_(facts), turned_(facts.rotation.testFlag(QImageIOHandler::TransformationRotate90)) {}

bool FilePicture::CanBePreviewed() const {
  const QSize size = facts_.IsPlainJpeg() ? SizeWithin(kMostPreviewPixels) : OverviewSize();
  return !Overview(size, size).isNull();
}

QImage FilePicture::Overview(QSize atLeast, QSize otherwise) const {
  const std::lock_guard lock(overviewMutex_);
  if (!Holds(overview_.size(), atLeast)) overview_ = DecodeFile(otherwise);
  return overview_;
}

QSize FilePicture::OverviewSize() const {
  return SizeWithin(kMostOverviewPixels);
}

QSize FilePicture::SizeWithin(double mostPixels) const {
  const QSizeF size = turned_ ? facts_.size.transposed() : facts_.size;
  const double share = mostPixels / (size.width() * size.height());
  return share >= 1 ? size.toSize() : (size * std::sqrt(share)).toSize().expandedTo(QSize(1, 1));
}

double FilePicture::WidthTwips() const {
  return kTwipsPerPixel * (turned_ ? facts_.size.height() : facts_.size.width());
}

double FilePicture::HeightTwips() const {
  return kTwipsPerPixel * (turned_ ? facts_.size.width() : facts_.size.height());
}

QImage FilePicture::Decode(QSize pixels) const {
  return Holds(OverviewSize(), pixels) ? Averaged(Overview(pixels, OverviewSize()), pixels)
                                       : DecodeFile(pixels);
}

QImage FilePicture::DecodeFile(QSize pixels) const {
  const QSize whole = facts_.size;
  const QSize size = (turned_ ? pixels.transposed() : pixels).boundedTo(whole);
  const QByteArray bytes = file_.InPlace();
  if (facts_.IsPlainJpeg()) return Turned(DecodeJpeg(bytes, whole, size), facts_.rotation);
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer, facts_.format);
  reader.setAutoTransform(true);
  if (facts_.index > 0) reader.jumpToImage(facts_.index);
  // The reader wants the size before the rotation. Of most of a picture the whole is the quickest.
  const bool mostOfIt = 2 * size.width() > whole.width() || 2 * size.height() > whole.height();
  if (!mostOfIt) reader.setScaledSize(size);
  return InSrgb(Averaged(reader.read(), turned_ ? size.transposed() : size));
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

QImage PictureCache::Image(const PicturePtr& picture, QSize pixels, Pixels which) {
  Entry& entry = entries_[picture.get()];
  // A picture that went may have left its place to another.
  if (entry.picture.lock() != picture) entry = {.picture = picture, .pixels = {}, .image = {}};
  entry.lastUse = ++uses_;
  const bool lastWillDo = which == Pixels::AsLastTime && !entry.image.isNull();
  if (entry.pixels == pixels || lastWillDo) return entry.image;

  const auto* decodable = dynamic_cast<const QtPicture*>(picture.get());
  entry.image = QImage();
  if (decodable != nullptr) {
    entry.image = decodable->Decode(pixels);
  }
  entry.pixels = pixels;
  const QImage image = entry.image;
  DropUnused();
  return image;
}

void PictureCache::PrepareForPaper(const std::vector<Wish>& wishes) {
  std::size_t bytes = 0;
  std::unordered_map<const FilePicture*, Entry> prepared;
  for (const Wish& wish : wishes) {
    const auto* file = dynamic_cast<const FilePicture*>(wish.picture.get());
    bytes +=
        4 * static_cast<std::size_t>(wish.pixels.width()) * static_cast<std::size_t>(wish.pixels.height());
    if (file == nullptr || bytes > limitBytes_) continue;
    const auto known = entries_.find(file);
    if (known != entries_.end() && known->second.pixels == wish.pixels) continue;
    prepared.try_emplace(file, Entry{wish.picture, wish.pixels, {}, ++uses_});
  }
  QThreadPool pool;
  for (auto& [file, entry] : prepared) {
    pool.start([decoded = &entry, source = file] { decoded->image = source->Decode(decoded->pixels); });
  }
  pool.waitForDone();
  for (auto& [file, entry] : prepared) entries_.insert_or_assign(file, std::move(entry));
}

void PictureCache::DropUnused() {
  std::erase_if(entries_, [](const auto& entry) { return entry.second.picture.expired(); });
  std::size_t bytes = 0;
  for (const auto& [picture, entry] : entries_) bytes += static_cast<std::size_t>(entry.image.sizeInBytes());
  while (bytes > limitBytes_ && entries_.size() > 1) {
    const auto oldest = std::min_element(entries_.begin(), entries_.end(), [](const auto& a, const auto& b) {
      return a.second.lastUse < b.second.lastUse;
    });
    bytes -= static_cast<std::size_t>(oldest->second.image.sizeInBytes());
    entries_.erase(oldest);
  }
}

}  // namespace Morvane
