#pragma once

#include <cstdint>
#include <string>

namespace Morvane {

// Up to 15 significant digits, no trailing zeros, no grouping, the given decimal separator; a whole number
// has none. From 1E+15 on, and below 0.0001, in exponent form ("1E+16", "2,5E-05"), which Val reads back
// where the separator is a point. `value` is finite; a negative zero is "0".
std::string NumberToText(double value, char decimalSeparator);

// The nearest whole number; halves go to the even neighbour: 2.5 gives 2, 3.5 gives 4.
double RoundHalfEven(double value);

// The value rounded to a 16-bit whole number. RuntimeError Overflow outside -32768 to 32767.
std::int16_t ToInteger16(double value);

}  // namespace Morvane
