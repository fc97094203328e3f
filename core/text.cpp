#include "core/text.h"

#include <cstddef>

namespace Morvane {

namespace {

// Capitals from `first` to `last`, every `step`; each has its small letter `offset` behind.
struct CaseRange {
  int first;
  int last;
  int step;
  int offset;
};

constexpr CaseRange kCaseRanges[] = {
    {'A', 'Z', 1, 32},       {0x00C0, 0x00D6, 1, 32}, {0x00D8, 0x00DE, 1, 32}, {0x0100, 0x012E, 2, 1},
    {0x0132, 0x0136, 2, 1},  {0x0139, 0x0147, 2, 1},  {0x014A, 0x0176, 2, 1},  {0x0178, 0x0178, 1, -121},
    {0x0179, 0x017D, 2, 1},  {0x0386, 0x0386, 1, 38}, {0x0388, 0x038A, 1, 37}, {0x038C, 0x038C, 1, 64},
    {0x038E, 0x038F, 1, 63}, {0x0391, 0x03A1, 1, 32}, {0x03A3, 0x03AB, 1, 32}, {0x0400, 0x040F, 1, 80},
    {0x0410, 0x042F, 1, 32}, {0x0460, 0x0480, 2, 1},  {0x048A, 0x04BE, 2, 1},  {0x04C0, 0x04C0, 1, 15},
    {0x04C1, 0x04CD, 2, 1},  {0x04D0, 0x052E, 2, 1},  {0x1E00, 0x1E94, 2, 1},  {0x1EA0, 0x1EFE, 2, 1},
};

int LowerOf(int c) {
  for (const CaseRange& range : kCaseRanges) {
    if (c >= range.first && c <= range.last && (c - range.first) % range.step == 0) return c + range.offset;
  }
  return c;
}

int UpperOf(int c) {
  for (const CaseRange& range : kCaseRanges) {
    const int upper = c - range.offset;
    if (upper >= range.first && upper <= range.last && (upper - range.first) % range.step == 0) return upper;
  }
  return c;
}

struct Character {
  int code = 0;
  std::size_t length = 1;  // bytes
  bool valid = true;       // false: one byte that is not UTF-8
};

bool IsContinuation(std::string_view text, std::size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

// The character at `at`. All letters with case have at most three bytes; longer ones are passed on bytewise.
Character CharacterAt(std::string_view text, std::size_t at) {
  const int lead = static_cast<unsigned char>(text[at]);
  const auto bits = [&](std::size_t offset) { return text[at + offset] & 0x3F; };
  if (lead < 0x80) return {lead, 1, true};
  if (lead >= 0xC2 && lead < 0xE0 && IsContinuation(text, at + 1)) {
    return {((lead & 0x1F) << 6) | bits(1), 2, true};
  }
  if (lead >= 0xE0 && lead < 0xF0 && IsContinuation(text, at + 1) && IsContinuation(text, at + 2)) {
    const int code = ((lead & 0x0F) << 12) | (bits(1) << 6) | bits(2);
    if (code >= 0x800) return {code, 3, true};
  }
  return {lead, 1, false};
}

void Append(std::string& text, int code) {
  const auto byte = [&](int value) { text += static_cast<char>(value); };
  if (code < 0x80) {
    byte(code);
  } else if (code < 0x800) {
    byte(0xC0 | (code >> 6));
    byte(0x80 | (code & 0x3F));
  } else {
    byte(0xE0 | (code >> 12));
    byte(0x80 | ((code >> 6) & 0x3F));
    byte(0x80 | (code & 0x3F));
  }
}

// The text with each character replaced by `convert(code)`.
template <typename Convert>
std::string Converted(std::string_view text, Convert convert) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Character character = CharacterAt(text, at);
    if (character.valid) {
      Append(result, convert(character.code));
    } else {
      result += text[at];
    }
    at += character.length;
  }
  return result;
}

// Signs that can stand in front of a word's first letter, such as an opening bracket.
bool IsSign(int c) {
  const bool digit = c >= '0' && c <= '9';
  const bool letter = LowerOf(c) >= 'a' && LowerOf(c) <= 'z';
  return c < 0x80 && !digit && !letter;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string ToUpper(std::string_view text) {
  return Converted(text, UpperOf);
}

std::string ToLower(std::string_view text) {
  return Converted(text, LowerOf);
}

std::string ProperCase(std::string_view text) {
  bool wordAhead = true;
  return Converted(text, [&](int code) {
    const int converted = wordAhead ? UpperOf(code) : LowerOf(code);
    const bool blank = code == ' ' || (code >= '\t' && code <= '\r');
    wordAhead = blank || (wordAhead && IsSign(code));
    return converted;
  });
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() && j < b.size()) {
    const Character left = CharacterAt(a, i);
    const Character right = CharacterAt(b, j);
    if (left.valid != right.valid) return false;
    if (left.code != right.code && (!left.valid || UpperOf(left.code) != UpperOf(right.code))) return false;
    i += left.length;
    j += right.length;
  }
  return i == a.size() && j == b.size();
}

}  // namespace Morvane
