#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <QImageIOHandler>
#include <QSize>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "platform/picture.h"
#include "platform/qt/pictures/kept_bytes.h"

class QSvgRenderer;

namespace Morvane {

// A picture of this back-end: it can be had as pixels at any size.
class QtPicture : public Picture {
 public:
  // The whole picture in at most this many pixels, stretched to the box: as large as asked, or as the file's
  // own pixels where those are fewer. A null image when it cannot be decoded now.
  virtual QImage Decode(QSize pixels) const = 0;
};

// A picture of pixels, kept as its file and as a small overview, which is all that the screen mostly wants.
// Decoded anew where more pixels are asked for.
class FilePicture : public QtPicture {
 public:
  struct Facts {
    QByteArray format;  // the toolkit's name of it; empty when it is a plain JPEG
    QSize size;         // in the file's pixels, before the recorded rotation
    QImageIOHandler::Transformations rotation;
    int index = 0;  // which of the images in the file it is

    bool IsPlainJpeg() const { return format.isEmpty(); }
  };

  FilePicture(QByteArrayView file, const Facts& facts);

  // Decodes the overview.
  bool CanBeDecoded() const { return !Overview(OverviewSize(), OverviewSize()).isNull(); }
  // Decodes a smaller one, where that is quicker; it does until more is asked for.
  bool CanBePreviewed() const;

  double WidthTwips() const override;
  double HeightTwips() const override;
  QImage Decode(QSize pixels) const override;

 private:
  QSize SizeWithin(double mostPixels) const;
  QSize OverviewSize() const;
  // The one that is there if it is as large as `atLeast`; otherwise decodes one of the other size.
  QImage Overview(QSize atLeast, QSize otherwise) const;
  QImage DecodeFile(QSize pixels) const;

  const KeptBytes file_;
  const Facts facts_;
  const bool turned_;  // the rotation exchanges the sides
  mutable std::mutex overviewMutex_;
  mutable QImage overview_;  // made when it is first wanted; only with the mutex
};

// A picture of pixels that are already there.
class PixelPicture : public QtPicture {
 public:
  explicit PixelPicture(QImage image) : image_(std::move(image)) {}

  double WidthTwips() const override;
  double HeightTwips() const override;
  QImage Decode(QSize pixels) const override;

 private:
  const QImage image_;
};

// A picture of lines and curves.
class SvgPicture : public QtPicture {
 public:
  SvgPicture(std::unique_ptr<QSvgRenderer> renderer, double widthTwips, double heightTwips);
  ~SvgPicture() override;

  double WidthTwips() const override { return widthTwips_; }
  double HeightTwips() const override { return heightTwips_; }
  QImage Decode(QSize pixels) const override;

 private:
  const std::unique_ptr<QSvgRenderer> renderer_;
  const double widthTwips_;
  const double heightTwips_;
};

enum class Pixels {
  Exact,      // as many as asked for
  AsLastTime  // those of the last painting, where there was one: for a size that won't stay
};

// The last decode of each picture that is still in use somewhere. Another size takes the place of the one
// that was there; above the limit the pictures that were not asked for longest are dropped.
class PictureCache {
 public:
  explicit PictureCache(std::size_t limitBytes = std::size_t{256} << 20) : limitBytes_(limitBytes) {}

  // The picture in at most this many pixels; a null image when it cannot be decoded.
  QImage Image(const PicturePtr& picture, QSize pixels, Pixels which = Pixels::Exact);

  struct Wish {
    PicturePtr picture;
    QSize pixels;
  };
  // Decodes what a sheet will ask for next, up to the limit, on all processors at once.
  void PrepareForPaper(const std::vector<Wish>& wishes);

  void Clear() { entries_.clear(); }

 private:
  struct Entry {
    std::weak_ptr<const Picture> picture;
    QSize pixels;
    QImage image;
    std::uint64_t lastUse = 0;
  };

  void DropUnused();

  const std::size_t limitBytes_;
  std::unordered_map<const Picture*, Entry> entries_;
  std::uint64_t uses_ = 0;
};

}  // namespace Morvane
