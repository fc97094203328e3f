#pragma once

namespace Morvane {

// The keys that reach Control::KeyDown, by the numbers that handlers compare with.
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyEscape = 27;

}  // namespace Morvane
