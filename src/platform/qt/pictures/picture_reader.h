#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QSize>

namespace Morvane {

// A picture file in memory, whatever its name says, as the toolkit reads it: JPEG, BMP (also run-length
// encoded, or without its file header), GIF, ICO, CUR, PNG, TIFF, WebP. Of several sizes in an icon the
// largest is taken.
class PictureReader {
 public:
  explicit PictureReader(const QByteArray& file);

  // Whether the bytes begin as a file of one of these formats does.
  bool KnowsFormat() const;

  // In pixels, the recorded rotation applied; empty when the file is damaged.
  QSize Size() const;

  // The whole picture stretched to this size, which is no larger than Size(): turned as recorded, in sRGB.
  // Called once. A null image when it cannot be decoded; where a JPEG ends too soon the rest is grey.
  QImage Read(QSize size);

 private:
  bool IsTurned() const;
  void JumpToLargest();

  QBuffer file_;
  QImageReader reader_;
  QByteArray format_;  // the toolkit's name of it
};

// Whether files of this MIME type can be read.
bool IsPictureType(const QByteArray& mimeType);

}  // namespace Morvane
