#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Morvane {

struct Utf8Step {
  char32_t character = 0;  // when not valid: the byte itself
  std::size_t length = 1;  // bytes
  bool valid = false;
};

// The character at byte `at`, which is below text.size(). A byte that belongs to no valid character comes
// alone.
Utf8Step ReadUtf8(std::string_view text, std::size_t at);

void AppendUtf8(std::string& text, char32_t character);

bool IsAscii(std::string_view text);

}  // namespace Morvane
