#include <gtest/gtest.h>

#include <iomanip>
#include <random>
#include <sstream>

#include "core/number_text.h"
#include "platform/runtime_error.h"
#include "tests/support/held_text.h"

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
  EXPECT_EQ(Val("\r7"), 0) << "a carriage return is no blank";
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

}  // namespace
}  // namespace Morvane
