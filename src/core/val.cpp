#include "core/val.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace Morvane {

namespace {

// No double needs more digits to be rounded right, as long as a digit behind them tells that there were
// others.
constexpr std::size_t kDigitsKept = 800;
// Far beyond any double, and still safe to add to the length of a text.
constexpr long long kLargestExponent = 1'000'000'000'000'000;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The characters of a text without its blanks.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) { SkipBlanks(); }

  char Current() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  void Next() {
    ++at_;
    SkipBlanks();
  }
  // Steps over one of two characters.
  bool Take(char a, char b) {
    if (at_ >= text_.size() || (Current() != a && Current() != b)) return false;
    Next();
    return true;
  }

 private:
  void SkipBlanks() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t' || text_[at_] == '\n')) ++at_;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

// The significant digits, as the number 0.<digits> times 10 to the power of `exponent`.
struct Digits {
  std::string kept;
  bool more = false;  // digits other than 0 were left out
  long long exponent = 0;

  void Add(char digit, bool fraction) {
    if (kept.empty() && digit == '0') {
      if (fraction) --exponent;
      return;
    }
    if (!fraction) ++exponent;
    if (kept.size() < kDigitsKept) {
      kept += digit;
    } else {
      more = more || digit != '0';
    }
  }
};

Digits ReadDigits(Reader& reader) {
  Digits digits;
  for (; IsDigit(reader.Current()); reader.Next()) digits.Add(reader.Current(), false);
  if (!reader.Take('.', '.')) return digits;
  for (; IsDigit(reader.Current()); reader.Next()) digits.Add(reader.Current(), true);
  return digits;
}

long long ReadExponent(Reader& reader) {
  if (!reader.Take('E', 'e')) return 0;
  const bool negative = reader.Current() == '-';
  reader.Take('+', '-');
  long long exponent = 0;
  for (; IsDigit(reader.Current()); reader.Next()) {
    exponent = std::min(exponent * 10 + (reader.Current() - '0'), kLargestExponent);
  }
  return negative ? -exponent : exponent;
}

double ToDouble(const Digits& digits, long long exponent) {
  std::string number = "0.";
  number += digits.kept;
  if (digits.more) number += '1';
  number += 'e';
  number += std::to_string(exponent);
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc{}) return value;
  return exponent > 0 ? std::numeric_limits<double>::max() : 0;
}

}  // namespace

double Val(std::string_view text) {
  Reader reader(text);
  const bool negative = reader.Current() == '-';
  reader.Take('+', '-');
  const Digits digits = ReadDigits(reader);
  if (digits.kept.empty()) return 0;
  const double value = ToDouble(digits, digits.exponent + ReadExponent(reader));
  return negative ? -value : value;
}

}  // namespace Morvane
