#include <cmath>

#include "core/number_text.h"
#include "fuzz/support/fuzz_machine.h"

using namespace Morvane;

// Any text is a number, and a number's text is that number again, to 15 digits.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const double value = Val(Text(data, size));
  MustHold(std::isfinite(value), "the value is finite");
  const double again = Val(NumberToText(value, '.'));
  MustHold(std::abs(again - value) <= std::abs(value) * 1e-14, "the text gives the value again");
  return 0;
}
