#include "platform/windows_1252.h"

#include <algorithm>
#include <array>

#include "platform/utf8.h"

namespace Morvane {

namespace {

constexpr std::uint8_t kFirstSpecial = 0x80;

// Bytes 80 to 9F; all others are equal to Latin-1.
constexpr std::array<char32_t, 32> kSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteOf(char32_t character) {
  const auto* special = std::find(kSpecials.begin(), kSpecials.end(), character);
  if (special != kSpecials.end()) return static_cast<char>(kFirstSpecial + (special - kSpecials.begin()));
  const bool latin1 = character < 0x80 || (character >= 0xA0 && character <= 0xFF);
  return latin1 ? static_cast<char>(character) : '?';
}

}  // namespace

char32_t Windows1252Character(std::uint8_t byte) {
  const bool special = byte >= kFirstSpecial && byte < kFirstSpecial + kSpecials.size();
  return special ? kSpecials[byte - kFirstSpecial] : byte;
}

std::string FromWindows1252(std::string_view bytes) {
  if (IsAscii(bytes)) return std::string(bytes);
  std::string utf8;
  utf8.reserve(bytes.size() + bytes.size() / 8);
  for (const char byte : bytes) AppendUtf8(utf8, Windows1252Character(static_cast<std::uint8_t>(byte)));
  return utf8;
}

std::string ToWindows1252(std::string_view utf8) {
  if (IsAscii(utf8)) return std::string(utf8);
  std::string bytes;
  bytes.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const Utf8Step step = ReadUtf8(utf8, at);
    bytes += step.valid ? ByteOf(step.character) : utf8[at];
    at += step.length;
  }
  return bytes;
}

std::string ReadableUtf8(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  std::string readable;
  readable.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Step step = ReadUtf8(text, at);
    if (step.valid) {
      readable.append(text.substr(at, step.length));
    } else {
      AppendUtf8(readable, Windows1252Character(static_cast<std::uint8_t>(text[at])));
    }
    at += step.length;
  }
  return readable;
}

}  // namespace Morvane
