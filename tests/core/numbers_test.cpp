#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <random>

#include "core/measures.h"
#include "core/number_text.h"
#include "core/val.h"
#include "platform/runtime_error.h"

namespace Morvane {
namespace {

// "text = number"
void ForEachPair(const std::initializer_list<std::string>& pairs,
                 const std::function<void(const std::string&, const std::string&)>& check) {
  for (const std::string& pair : pairs)
    check(pair.substr(0, pair.find(" = ")), pair.substr(pair.find(" = ") + 3));
}

TEST(Val, ReadsTheNumberAtTheHead) {
  ForEachPair({"121 = 121", "-25.5mm = -25.5", "+.5 = 0.5", "5. = 5", "1.2.3 = 1.2", "12,5 = 12",
               "1.5e2 = 150", "15E-1x = 1.5", "2e = 2", "1e+2 = 100", " \t- 1 2\n1 . 5 e + 1  = -1215",
               "1e-400 = 0", "0e99999999999999999999999 = 0", "0." + std::string(500, '0') + "1e501 = 1",
               // Half way between two doubles, and a little above: only the last of all digits tells.
               "1.000000000000000111022302462515654042363166809082031251 = 1.0000000000000002",
               "9007199254740993." + std::string(2000, '0') + " = 9007199254740992",
               "9007199254740993." + std::string(2000, '0') + "1 = 9007199254740994"},
              [](const auto& text, const auto& number) { EXPECT_EQ(Val(text), std::stod(number)) << text; });
  EXPECT_EQ(Val("1e400"), std::numeric_limits<double>::max());
  EXPECT_EQ(Val("-1e99999999999999999999999"), -std::numeric_limits<double>::max());
  for (const char* text : {"", "   ", "abc", "-", ".", "e5", "+-5", "--5", "&H1F", "-.e3", "\r7", "<html>"}) {
    EXPECT_EQ(Val(text), 0) << text;
  }
}

TEST(Val, TakesALongTextInLinearTime) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Val(std::string(2'000'000, '7')), std::numeric_limits<double>::max());
  EXPECT_EQ(Val(std::string(2'000'000, ' ') + "7"), 7);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(NumberToText, WritesFifteenDigitsWithTheLocalesSeparator) {
  ForEachPair(
      {"121.00000000000001 = 121", "31.999999999999996 = 32", "25.5 = 25,5", "-0.1 = -0,1",
       "0.33333333333333333 = 0,333333333333333", "-0.0 = 0", "123456789012345 = 123456789012345",
       "1e16 = 1E+16", "0.0001 = 0,0001", "-0.000025 = -2,5E-05"},
      [](const auto& number, const auto& text) { EXPECT_EQ(NumberToText(std::stod(number), ','), text); });
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

TEST(Rounding, GivesHalvesToTheEvenNeighbourAndRefusesWhatSixteenBitsCannotHold) {
  const std::pair<double, int> numbers[] = {{2.5, 2},         {3.5, 4},           {-2.5, -2},
                                            {-3.5, -4},       {1.4999, 1},        {-1.6, -2},
                                            {32767.4, 32767}, {-32768.5, -32768}, {0.49999999999999994, 0}};
  for (const auto& [number, whole] : numbers) EXPECT_EQ(ToInteger16(number), whole) << number;
  for (const double number : {32767.5, -32769.0, 1e300}) EXPECT_THROW(ToInteger16(number), RuntimeError);
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
