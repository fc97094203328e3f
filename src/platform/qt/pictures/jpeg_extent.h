#pragma once

#include <QByteArray>

namespace Morvane {

// What of a JPEG file is its first picture: phones append films and further pictures.
struct JpegExtent {
  qsizetype end = 0;    // bytes from the start of the file
  qsizetype scans = 0;  // passes over the pixels
};

JpegExtent ExtentOfJpeg(const QByteArray& file);

}  // namespace Morvane
