#include "platform/text.h"

#include <locale>

#include "platform/utf8.h"

namespace Morvane {

namespace {

constexpr char32_t kInvalidByte = 0x110000;  // + the byte: kept apart from every character

const std::ctype<wchar_t>& Letters() {
  static const std::locale unicode("C.UTF-8");
  return std::use_facet<std::ctype<wchar_t>>(unicode);
}

// Takes one character off the front of `text`.
char32_t TakeCharacter(std::string_view& text) {
  const Utf8Step step = ReadUtf8(text, 0);
  text.remove_prefix(step.length);
  return step.valid ? step.character : kInvalidByte + step.character;
}

void Append(std::string& text, char32_t c) {
  c >= kInvalidByte ? text.push_back(static_cast<char>(c - kInvalidByte)) : AppendUtf8(text, c);
}

char32_t Lower(char32_t c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  return c >= kInvalidByte ? c : static_cast<char32_t>(Letters().tolower(static_cast<wchar_t>(c)));
}

char32_t Upper(char32_t c) {
  if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 32 : c;
  return c >= kInvalidByte ? c : static_cast<char32_t>(Letters().toupper(static_cast<wchar_t>(c)));
}

// A letter that does not come back from its upper case (the micro sign, the long s) stays as it is: the text
// must go on being found where case is ignored.
char32_t Capital(char32_t c) {
  return Lower(Upper(c)) == Lower(c) ? Upper(c) : c;
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
    const char32_t changed = inWord ? Lower(c) : Capital(c);
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

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace Morvane
