#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <random>

#include "core/measures.h"
#include "core/number_text.h"
#include "core/val.h"
#include "platform/runtime_error.h"

namespace Morvane {
namespace {

TEST(Val, ReadsTheNumberAtTheHead) {
  EXPECT_EQ(Val("121"), 121);
  EXPECT_EQ(Val("-25.5mm"), -25.5);
  EXPECT_EQ(Val("+.5"), 0.5);
  EXPECT_EQ(Val("5."), 5);
  EXPECT_EQ(Val("1.2.3"), 1.2);
  EXPECT_EQ(Val("1.5e2"), 150);
  EXPECT_EQ(Val("15E-1x"), 1.5);
  EXPECT_EQ(Val("0.1"), 0.1);
  EXPECT_EQ(Val("2e"), 2);
}

TEST(Val, SkipsBlanksEverywhere) {
  EXPECT_EQ(Val(" \t- 1 2\n1 . 5 e + 1 "), -1215);
  EXPECT_EQ(Val("2 60"), 260);
}

TEST(Val, GivesZeroForTextWithoutNumber) {
  for (const char* text : {"", "   ", "abc", "-", ".", "e5", "+-5", "--5", "&H1F", "-.e3", "<html>"}) {
    EXPECT_EQ(Val(text), 0) << text;
  }
}

TEST(Val, StopsAtADecimalComma) {
  EXPECT_EQ(Val("12,5"), 12);
}

TEST(Val, StaysFiniteBeyondTheRangeOfADouble) {
  const double largest = std::numeric_limits<double>::max();
  EXPECT_EQ(Val("1e400"), largest);
  EXPECT_EQ(Val("-1e99999999999999999999999"), -largest);
  EXPECT_EQ(Val("1e-400"), 0);
  EXPECT_EQ(Val("0e99999999999999999999999"), 0);
  EXPECT_EQ(Val("0." + std::string(500, '0') + "1e501"), 1);
}

TEST(Val, RoundsRightWhateverTheNumberOfDigits) {
  // Half way between two doubles, and a little above: only the last of all digits tells.
  const std::string half = "9007199254740993." + std::string(2000, '0');
  EXPECT_EQ(Val(half), 9007199254740992.0);
  EXPECT_EQ(Val(half + "1"), 9007199254740994.0);
}

TEST(Val, TakesALongTextInLinearTime) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Val(std::string(2'000'000, '7')), std::numeric_limits<double>::max());
  EXPECT_EQ(Val(std::string(2'000'000, ' ') + "7"), 7);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(NumberToText, WritesFifteenDigitsWithTheLocalesSeparator) {
  EXPECT_EQ(NumberToText(121.00000000000001, ','), "121");
  EXPECT_EQ(NumberToText(31.999999999999996, '.'), "32");
  EXPECT_EQ(NumberToText(25.5, ','), "25,5");
  EXPECT_EQ(NumberToText(-0.1, '.'), "-0.1");
  EXPECT_EQ(NumberToText(1.0 / 3, '.'), "0.333333333333333");
  EXPECT_EQ(NumberToText(1234567.25, ','), "1234567,25");
  EXPECT_EQ(NumberToText(-0.0, '.'), "0");
}

TEST(NumberToText, UsesAnExponentForVeryLargeAndVerySmallNumbers) {
  EXPECT_EQ(NumberToText(123456789012345, '.'), "123456789012345");
  EXPECT_EQ(NumberToText(1e16, '.'), "1E+16");
  EXPECT_EQ(NumberToText(0.0001, '.'), "0.0001");
  EXPECT_EQ(NumberToText(-0.000025, ','), "-2,5E-05");
}

TEST(NumberToText, ComesBackThroughValToFifteenDigits) {
  std::mt19937 random(20240611);
  std::uniform_int_distribution<long long> digits(-999'999'999'999'999, 999'999'999'999'999);
  std::uniform_int_distribution<int> exponent(-300, 280);
  for (int i = 0; i < 2000; ++i) {
    const std::string text = std::to_string(digits(random)) + "e" + std::to_string(exponent(random));
    const double value = std::stod(text);
    EXPECT_EQ(Val(text), value);
    EXPECT_EQ(Val(NumberToText(value, '.')), value) << text;
  }
}

TEST(Rounding, GivesHalvesToTheEvenNeighbour) {
  EXPECT_EQ(RoundHalfEven(2.5), 2);
  EXPECT_EQ(RoundHalfEven(3.5), 4);
  EXPECT_EQ(RoundHalfEven(-2.5), -2);
  EXPECT_EQ(RoundHalfEven(-3.5), -4);
  EXPECT_EQ(RoundHalfEven(0.49999999999999994), 0);
  EXPECT_EQ(RoundHalfEven(-1.6), -2);
}

TEST(Rounding, RefusesNumbersOutsideSixteenBits) {
  EXPECT_EQ(ToInteger16(32767.4), 32767);
  EXPECT_EQ(ToInteger16(-32768.5), -32768);
  for (const double value : {32767.5, -32769.0, 1e300}) {
    try {
      ToInteger16(value);
      ADD_FAILURE() << value;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    }
  }
}

TEST(Measures, BringTenthsOfMillimetresBackThroughTheTables) {
  for (int tenths = -5000; tenths <= 50000; ++tenths) {
    const double mm = tenths / 10.0;
    const std::string text = NumberToText(mm, '.');
    ASSERT_EQ(NumberToText(MmFromCm(CmFromMm(mm)), '.'), text);
    ASSERT_EQ(NumberToText(MmFromInches(InchesFromMm(mm)), '.'), text);
  }
}

}  // namespace
}  // namespace Morvane
