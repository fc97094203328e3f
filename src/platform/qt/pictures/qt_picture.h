#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <memory>

#include "platform/picture.h"

class QSvgRenderer;

namespace Morvane {

// A picture of this back-end: it can be had as pixels at any size.
class QtPicture : public Picture {
 public:
  // The whole picture in at most this many pixels, stretched to the box: as large as asked, or as the file's
  // own pixels where those are fewer. A null image when there is no memory for it. Several threads may ask.
  virtual QImage Decode(QSize pixels) const = 0;
};

// A picture of pixels, kept as its file and as a small overview, which is all that the screen mostly wants.
// Decoded anew where more pixels are asked for.
class FilePicture : public QtPicture {
 public:
  // The size of the overview of a picture of `size`, both in pixels.
  static QSize OverviewSize(QSize size);

  // `size` is that of the file's picture in pixels, the recorded rotation applied. Where the overview is null
  // each decoding reads the file.
  FilePicture(QByteArray file, QSize size, QImage overview)
      : file_(std::move(file)), size_(size), overview_(std::move(overview)) {}

  double WidthTwips() const override;
  double HeightTwips() const override;
  QImage Decode(QSize pixels) const override;

 private:
  const QByteArray file_;
  const QSize size_;
  const QImage overview_;
};

// A picture of lines and curves, an SVG that measures its natural size in twips. One thread at a time.
class SvgPicture : public QtPicture {
 public:
  explicit SvgPicture(std::unique_ptr<QSvgRenderer> renderer);
  ~SvgPicture() override;

  double WidthTwips() const override;
  double HeightTwips() const override;
  QImage Decode(QSize pixels) const override;

 private:
  const std::unique_ptr<QSvgRenderer> renderer_;
};

}  // namespace Morvane
