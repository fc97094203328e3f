#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/runtime_error.h"

namespace Morvane {

namespace {

constexpr int kSignificantDigits = 15;

}  // namespace

std::string NumberToText(double value, char decimalSeparator) {
  if (value == 0) return "0";
  std::array<char, 32> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::general, kSignificantDigits);
  std::string text(buffer.data(), result.ptr);
  std::replace(text.begin(), text.end(), '.', decimalSeparator);
  std::replace(text.begin(), text.end(), 'e', 'E');
  return text;
}

double RoundHalfEven(double value) {
  const double below = std::floor(value);
  const double rest = value - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

std::int16_t ToInteger16(double value) {
  const double whole = RoundHalfEven(value);
  using Limits = std::numeric_limits<std::int16_t>;
  if (!(whole >= Limits::min() && whole <= Limits::max())) {
    throw RuntimeError(ErrorNumber::Overflow, "Il numero non è compreso tra -32768 e 32767.");
  }
  return static_cast<std::int16_t>(whole);
}

}  // namespace Morvane
