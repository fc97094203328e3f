#include "platform/qt/pictures/jpeg_extent.h"

#include <QtEndian>
#include <algorithm>

namespace Morvane {
namespace {

constexpr uchar kFirstFrame = 0xC0;
constexpr uchar kRestart0 = 0xD0;
constexpr uchar kStart = 0xD8;
constexpr uchar kEnd = 0xD9;
constexpr uchar kScan = 0xDA;
constexpr uchar kFill = 0xFF;

// Restarts and the start of the picture stand alone; all else from C0 on has its length behind it.
bool HasLength(uchar marker) {
  return marker >= kFirstFrame && (marker < kRestart0 || marker > kStart);
}

}  // namespace

// As the decoder goes: whatever stands between two markers is skipped, the data of a scan and garbage alike.
// A segment, such as one with a thumbnail, is skipped by its length.
JpegExtent ExtentOfJpeg(const QByteArray& file) {
  JpegExtent extent{file.size(), 0};
  qsizetype at = 0;
  while ((at = file.indexOf('\xFF', at)) >= 0 && at + 1 < file.size()) {
    const auto marker = static_cast<uchar>(file.at(++at));
    if (marker == kFill) continue;
    ++at;
    if (marker == kEnd) {
      extent.end = at;
      return extent;
    }
    if (marker == kScan) ++extent.scans;
    if (!HasLength(marker)) continue;
    if (at + 2 > file.size()) return extent;
    at += std::max<qsizetype>(2, qFromBigEndian<quint16>(file.constData() + at));
  }
  return extent;
}

}  // namespace Morvane
