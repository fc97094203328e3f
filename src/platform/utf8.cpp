#include "platform/utf8.h"

#include <algorithm>
#include <cstdint>

namespace Morvane {

namespace {

// Bytes of the character that `first` begins; 0 when it begins none.
std::size_t LengthFromFirstByte(std::uint8_t first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  if (first >= 0xF0 && first <= 0xF4) return 4;
  return 0;
}

bool IsOverlongOrOutside(char32_t character, std::size_t length) {
  if (length == 3) return character < 0x800 || (character >= 0xD800 && character <= 0xDFFF);
  if (length == 4) return character < 0x10000 || character > 0x10FFFF;
  return false;
}

}  // namespace

Utf8Step ReadUtf8(std::string_view text, std::size_t at) {
  const auto first = static_cast<std::uint8_t>(text[at]);
  const Utf8Step alone{first, 1, false};
  const std::size_t length = LengthFromFirstByte(first);
  if (length == 1) return {first, 1, true};
  if (length == 0 || text.size() - at < length) return alone;

  char32_t character = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<std::uint8_t>(text[at + i]);
    if ((next & 0xC0U) != 0x80U) return alone;
    character = (character << 6U) | (next & 0x3FU);
  }
  if (IsOverlongOrOutside(character, length)) return alone;
  return {character, length, true};
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(static_cast<std::uint8_t>(byte)); };
  const auto tail = [character](unsigned shift) { return 0x80U | ((character >> shift) & 0x3FU); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0U | (character >> 6U));
    append(tail(0));
  } else if (character < 0x10000) {
    append(0xE0U | (character >> 12U));
    append(tail(6));
    append(tail(0));
  } else {
    append(0xF0U | (character >> 18U));
    append(tail(12));
    append(tail(6));
    append(tail(0));
  }
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return (static_cast<std::uint8_t>(c) & 0x80U) == 0; });
}

}  // namespace Morvane
