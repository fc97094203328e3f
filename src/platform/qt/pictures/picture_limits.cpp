#include "platform/qt/pictures/picture_limits.h"

namespace Morvane {
namespace {

constexpr qint64 kMostPixels = qint64{64} << 20;
constexpr qint64 kMostJpegPixels = qint64{128} << 20;  // mostly decoded in parts or row by row
constexpr qint64 kMostPixelsInScans = qint64{1024} << 20;

}  // namespace

bool CostsTooMuch(QSize size, qsizetype jpegScans) {
  const qint64 pixels = qint64{size.width()} * size.height();
  if (jpegScans == 0) return pixels > kMostPixels;
  return pixels > kMostJpegPixels || pixels * jpegScans > kMostPixelsInScans;
}

}  // namespace Morvane
