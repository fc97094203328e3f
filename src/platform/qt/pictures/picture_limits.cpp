#include "platform/qt/pictures/picture_limits.h"

namespace Morvane {
namespace {

constexpr qint64 kMostPixels = qint64{64} << 20;
constexpr qint64 kMostJpegPixels = qint64{128} << 20;  // decoded in eighths, so they cost less
constexpr qint64 kMostPixelsInScans = qint64{1024} << 20;

// The start of a scan is the byte pair FF DA, which cannot stand within the data of one.
qsizetype ScansOf(const QByteArray& jpeg) {
  qsizetype scans = 0;
  for (qsizetype at = jpeg.indexOf('\xFF'); at >= 0; at = jpeg.indexOf('\xFF', at + 1)) {
    if (at + 1 < jpeg.size() && jpeg.at(at + 1) == '\xDA') ++scans;
  }
  return scans;
}

}  // namespace

bool CostsTooMuch(const QByteArray& bytes, const QByteArray& format, QSize size) {
  const qint64 pixels = qint64{size.width()} * size.height();
  if (format != "jpeg" && format != "jpg") return pixels > kMostPixels;
  return pixels > kMostJpegPixels || pixels * ScansOf(bytes) > kMostPixelsInScans;
}

}  // namespace Morvane
