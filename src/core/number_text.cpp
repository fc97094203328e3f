#include "core/number_text.h"

#include <locale.h>
#include <stdlib.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

#include "platform/runtime_error.h"

namespace Morvane {

namespace {

constexpr int kSignificantDigits = 15;

}  // namespace

double Val(std::string_view text) {
  std::string number;
  std::copy_if(text.begin(), text.end(), std::back_inserter(number),
               [](char c) { return c != ' ' && c != '\t' && c != '\n'; });
  // What strtod would read beyond decimal numbers: "inf", "nan", hexadecimal ones, other blanks in front.
  number.resize(std::min(number.find_first_not_of("+-.0123456789Ee"), number.size()));
  static const locale_t decimalPoint = newlocale(LC_ALL_MASK, "C", nullptr);
  const double value = strtod_l(number.c_str(), nullptr, decimalPoint);
  return std::clamp(value, std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max());
}

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

std::int16_t ToInteger16(double value) {
  const double whole = std::nearbyint(value);
  using Limits = std::numeric_limits<std::int16_t>;
  if (!(whole >= Limits::min() && whole <= Limits::max())) {
    throw RuntimeError(ErrorNumber::Overflow, "Il numero non è compreso tra -32768 e 32767.");
  }
  return static_cast<std::int16_t>(whole);
}

}  // namespace Morvane
