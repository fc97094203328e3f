#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <locale>

namespace Morvane {

namespace {

using Codec = std::codecvt<char32_t, char8_t, std::mbstate_t>;

const Codec& Utf8() {
  return std::use_facet<Codec>(std::locale::classic());
}

// Some standard libraries read these halves of characters as characters.
bool IsSurrogate(char32_t character) {
  return character >= 0xD800 && character <= 0xDFFF;
}

}  // namespace

Utf8Step ReadUtf8(std::string_view text, std::size_t at) {
  const auto first = static_cast<std::uint8_t>(text[at]);
  if (first < 0x80) return {first, 1, true};
  const auto* const start = reinterpret_cast<const char8_t*>(text.data()) + at;
  const char8_t* next = start;
  char32_t character = 0;
  char32_t* end = &character;
  std::mbstate_t state{};
  Utf8().in(state, start, start + (text.size() - at), next, &character, &character + 1, end);
  if (end == &character || IsSurrogate(character)) return {first, 1, false};
  return {character, static_cast<std::size_t>(next - start), true};
}

void AppendUtf8(std::string& text, char32_t character) {
  std::array<char8_t, 4> bytes{};
  const char32_t* next = &character;
  char8_t* end = bytes.data();
  std::mbstate_t state{};
  Utf8().out(state, &character, &character + 1, next, bytes.data(), bytes.data() + bytes.size(), end);
  text.append(bytes.data(), end);
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return (static_cast<std::uint8_t>(c) & 0x80U) == 0; });
}

}  // namespace Morvane
