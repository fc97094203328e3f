#pragma once

namespace Morvane {

inline constexpr double kTwipsPerInch = 1440.0;
inline constexpr double kTwipsPerPoint = 20.0;
inline constexpr double kCentimetresPerInch = 2.54;
inline constexpr double kMillimetresPerInch = 25.4;
inline constexpr double kTwipsPerMillimetre = kTwipsPerInch / kMillimetresPerInch;

// Twips in one pixel of a screen at 100 %. Windows are designed on this grid; the toolkit scales the whole.
inline constexpr double kTwipsPerPixel = 15.0;

}  // namespace Morvane
