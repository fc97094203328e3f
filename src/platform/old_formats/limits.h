#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "platform/units.h"

// What a picture of an old format may cost. The decoder keeps to this; its caller checks time, bytes and the
// size of a drawing, and reads a bitmap within the limits of all pictures.
namespace Morvane::DecoderLimits {

inline constexpr std::size_t kFileBytes = std::size_t{64} << 20;
inline constexpr std::size_t kSvgBytes = std::size_t{64} << 20;
inline constexpr std::int64_t kPixels = std::int64_t{64} << 20;
inline constexpr int kSide = 30000;  // pixels
inline constexpr double kSideTwips = kSide * kTwipsPerPixel;
inline constexpr std::size_t kMemoryBytes = std::size_t{1} << 30;
inline constexpr int kProcessorSeconds = 3;
inline constexpr std::chrono::milliseconds kWallTime{2000};

}  // namespace Morvane::DecoderLimits
