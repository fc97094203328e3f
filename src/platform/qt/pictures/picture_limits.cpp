#include "platform/qt/pictures/picture_limits.h"

#include <QtEndian>
#include <algorithm>

namespace Morvane {
namespace {

constexpr qint64 kMostPixels = qint64{64} << 20;
constexpr qint64 kMostJpegPixels = qint64{128} << 20;  // mostly decoded in parts or row by row
constexpr qint64 kMostPixelsInScans = qint64{1024} << 20;

constexpr uchar kFirstWithLength = 0xC0;
constexpr uchar kRestart0 = 0xD0;
constexpr uchar kStart = 0xD8;
constexpr uchar kEnd = 0xD9;
constexpr uchar kScan = 0xDA;

}  // namespace

// Restarts and the start of the picture stand alone; all else from C0 on has its length behind it.
bool HasJpegLength(uchar marker) {
  return marker >= kFirstWithLength && (marker < kRestart0 || marker > kStart);
}

// As the decoder goes: whatever stands between two markers is skipped, the data of a scan and garbage alike.
// A segment, such as one with a thumbnail, is skipped by its length.
JpegExtent ExtentOfJpeg(const QByteArray& bytes) {
  JpegExtent extent{bytes.size(), 0};
  qsizetype at = 0;
  while ((at = bytes.indexOf('\xFF', at)) >= 0 && at + 1 < bytes.size()) {
    const auto marker = static_cast<uchar>(bytes.at(++at));
    if (marker == 0xFF) continue;
    ++at;
    if (marker == kEnd) {
      extent.end = at;
      return extent;
    }
    if (marker == kScan) ++extent.scans;
    if (!HasJpegLength(marker)) continue;
    if (at + 2 > bytes.size()) return extent;
    at += std::max<qsizetype>(2, qFromBigEndian<quint16>(bytes.constData() + at));
  }
  return extent;
}

bool CostsTooMuch(QSize size, qsizetype jpegScans) {
  const qint64 pixels = qint64{size.width()} * size.height();
  if (jpegScans == 0) return pixels > kMostPixels;
  return pixels > kMostJpegPixels || pixels * jpegScans > kMostPixelsInScans;
}

}  // namespace Morvane
