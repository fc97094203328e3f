#pragma once

#include <QByteArray>
#include <QImageIOHandler>
#include <QSize>
#include <optional>

namespace Morvane {

// What the head of a plain JPEG tells.
struct PlainJpeg {
  QSize size;  // of the pixels in the file
  QImageIOHandler::Transformations rotation;
};

// Most cameras' files are plain: three colours of eight bits, sRGB as far as they tell. Nothing for any
// other.
std::optional<PlainJpeg> ReadPlainJpeg(const QByteArray& file);

// What of a JPEG file is its first picture: phones append films and further pictures.
struct JpegExtent {
  qsizetype end = 0;    // bytes from the start of the file
  qsizetype scans = 0;  // passes over the pixels
};

JpegExtent ExtentOfJpeg(const QByteArray& bytes);

}  // namespace Morvane
