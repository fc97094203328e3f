#include <gtest/gtest.h>

#include <chrono>
#include <iomanip>
#include <limits>
#include <random>
#include <sstream>

#include "core/measures.h"
#include "core/number_text.h"
#include "platform/runtime_error.h"
#include "tests/support/cases.h"

namespace Morvane {
namespace {

TEST(Numbers, AreReadWrittenAndRoundedAsTheCasesTell) {
  ExpectCases("tests/core/numbers.txt", [](const std::string& given) -> std::string {
    const std::size_t begin = given.find('[') + 1;
    const std::string text = given.substr(begin, given.rfind(']') - begin);
    try {
      if (given.starts_with("NumberToText")) return NumberToText(std::stod(text), ',');
      if (given.starts_with("ToInteger16")) return std::to_string(ToInteger16(std::stod(text)));
    } catch (const RuntimeError& error) {
      return error.what();
    }
    std::ostringstream number;
    number << std::setprecision(17) << Val(text);
    return number.str();
  });
}

TEST(Val, TakesEachDigitOfALongTextAndNothingBehindACarriageReturn) {
  const std::string half = "9007199254740993." + std::string(2000, '0');  // between two doubles
  EXPECT_EQ(Val(half), 9007199254740992);
  EXPECT_EQ(Val(half + "1"), 9007199254740994);
  EXPECT_EQ(Val("0." + std::string(500, '0') + "1e501"), 1);
  EXPECT_EQ(Val("\r7"), 0);
}

TEST(Val, TakesALongTextInLinearTime) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Val(std::string(2'000'000, '7')), std::numeric_limits<double>::max());
  EXPECT_EQ(Val(std::string(2'000'000, ' ') + "7"), 7);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
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
