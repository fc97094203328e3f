#include "core/text.h"

namespace Morvane {

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return CompareIgnoringCase(a, b) == 0;
}

}  // namespace Morvane
