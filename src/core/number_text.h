#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Morvane {

// The number at the head of a text: optional sign, digits, optional "." with further digits, optional
// exponent (E or e). Blanks (spaces, tabs, line feeds) are skipped anywhere, also between digits. Stops at
// the first character that cannot continue the number; 0 when no digit was read. Only "." is a decimal point,
// whatever the locale: "12,5" gives 12. Never fails; the result is always finite: beyond the range of a
// double it is the largest one. Time is linear in the text.
double Val(std::string_view text);

// Up to 15 significant digits, no trailing zeros, no grouping, the given decimal separator; a whole number
// has none. From 1E+15 on, and below 0.0001, in exponent form ("1E+16", "2,5E-05"), which Val reads back
// where the separator is a point. `value` is finite; a negative zero is "0".
std::string NumberToText(double value, char decimalSeparator);

// The value rounded to a 16-bit whole number, halves to the even neighbour: 2.5 gives 2, 3.5 gives 4.
// RuntimeError Overflow outside -32768 to 32767.
std::int16_t ToInteger16(double value);

}  // namespace Morvane
