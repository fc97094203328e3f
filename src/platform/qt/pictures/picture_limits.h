#pragma once

#include <QSize>
#include <cstdint>

// What a picture may cost: two seconds and 1.5 GiB. Old formats have limits of their own
// (platform/old_formats/limits.h).
namespace Morvane::PictureLimits {

inline constexpr std::uintmax_t kFileBytes = std::uintmax_t{256} << 20;
inline constexpr int kDecodedMegabytes = 1024;  // of one image in memory
inline constexpr qint64 kPixels = qint64{64} << 20;
inline constexpr qint64 kJpegPixels = qint64{128} << 20;
inline constexpr qint64 kPixelsInScans = qint64{1024} << 20;  // of a JPEG, whose scans go over them each
inline constexpr double kDrawnPixels = 64e6;                  // that a drawing is made into

// More pixels than a camera makes, or a JPEG that goes over them again and again. `jpegScans` is 0 for any
// other format.
constexpr bool Exceeds(QSize size, qsizetype jpegScans) {
  const qint64 pixels = qint64{size.width()} * size.height();
  if (jpegScans == 0) return pixels > kPixels;
  return pixels > kJpegPixels || pixels * jpegScans > kPixelsInScans;
}

}  // namespace Morvane::PictureLimits
