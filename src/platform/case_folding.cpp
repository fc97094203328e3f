#include "platform/case_folding.h"

#include <algorithm>
#include <cstdint>
#include <locale>

namespace Morvane {

namespace {

constexpr char32_t kInvalidByte = 0x110000;  // + the byte: kept apart from every character

const std::ctype<wchar_t>& Letters() {
  static const std::locale unicode("C.UTF-8");
  return std::use_facet<std::ctype<wchar_t>>(unicode);
}

// Takes one character off the front of `text`.
char32_t TakeCharacter(std::string_view& text) {
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byteAt(0);
  const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
  char32_t value = length == 1 ? lead : lead & (0xFFU >> (length + 1));
  bool valid = length > 0 && length <= text.size() && lead < 0xF5;
  for (std::size_t i = 1; valid && i < length; ++i) {
    valid = (byteAt(i) & 0xC0U) == 0x80U;
    value = value << 6 | (byteAt(i) & 0x3FU);
  }
  text.remove_prefix(valid ? length : 1);
  return valid ? value : kInvalidByte + lead;
}

void Append(std::string& text, char32_t c) {
  const auto put = [&](char32_t byte) {
    text.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
  };
  if (c >= kInvalidByte) {
    put(c - kInvalidByte);
  } else if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | c >> 6);
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | c >> 12);
    put(0x80 | (c >> 6 & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | c >> 18);
    put(0x80 | (c >> 12 & 0x3F));
    put(0x80 | (c >> 6 & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

char32_t Lower(char32_t c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  return c >= kInvalidByte ? c : static_cast<char32_t>(Letters().tolower(static_cast<wchar_t>(c)));
}

char32_t Upper(char32_t c) {
  if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 32 : c;
  return c >= kInvalidByte ? c : static_cast<char32_t>(Letters().toupper(static_cast<wchar_t>(c)));
}

bool IsBlank(char32_t c) {
  return c == U' ' || (c >= U'\t' && c <= U'\r');
}

template <typename Change>
std::string ChangeEach(std::string_view text, Change change) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) Append(result, change(TakeCharacter(text)));
  return result;
}

}  // namespace

std::string ToLower(std::string_view text) {
  return ChangeEach(text, Lower);
}

std::string ToUpper(std::string_view text) {
  return ChangeEach(text, Upper);
}

std::string ProperCase(std::string_view text) {
  bool inWord = false;
  return ChangeEach(text, [&](char32_t c) {
    const char32_t changed = inWord ? Lower(c) : Upper(c);
    inWord = !IsBlank(c);
    return changed;
  });
}

int CompareIgnoringCase(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    const char32_t left = Lower(TakeCharacter(a));
    const char32_t right = Lower(TakeCharacter(b));
    if (left != right) return left < right ? -1 : 1;
  }
  return a.empty() && b.empty() ? 0 : a.empty() ? -1 : 1;
}

}  // namespace Morvane
