#pragma once

#include <QByteArray>
#include <QSize>

namespace Morvane {

// What of a JPEG file is its first picture: phones append films and further pictures.
struct JpegExtent {
  qsizetype end = 0;    // bytes from the start of the file
  qsizetype scans = 0;  // passes over the pixels
};

// Whether the length of a segment stands behind this marker, the byte after FF.
bool HasJpegLength(uchar marker);

JpegExtent ExtentOfJpeg(const QByteArray& bytes);

// True when decoding a picture could take more than two seconds or 1.5 GiB: more pixels than a camera makes,
// or a JPEG whose scans go over them again and again. Any other format has no scans.
bool CostsTooMuch(QSize size, qsizetype jpegScans);

}  // namespace Morvane
