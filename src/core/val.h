#pragma once

#include <string_view>

namespace Morvane {

// The number at the head of a text: optional sign, digits, optional "." with further digits, optional
// exponent (E or e). Blanks (spaces, tabs, line feeds) are skipped anywhere, also between digits. Stops at
// the first character that cannot continue the number; 0 when no digit was read. Only "." is a decimal point,
// whatever the locale: "12,5" gives 12. Never fails; the result is always finite: beyond the range of a
// double it is the largest one. Time is linear in the text, memory constant.
double Val(std::string_view text);

}  // namespace Morvane
