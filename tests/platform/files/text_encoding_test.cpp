#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/files/name_order.h"
#include "platform/text.h"
#include "platform/utf8.h"
#include "platform/windows_1252.h"

namespace Morvane {
namespace {

TEST(Windows1252, KeepsEachByteOnTheWayToUtf8AndBackAndAsksForWhatItLacks) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(ToWindows1252(FromWindows1252(bytes)), bytes);
  EXPECT_EQ(FromWindows1252("\x80 \x93perch\xE9\x94 \x81\x9F"), "€ “perché” \u0081Ÿ");
  EXPECT_EQ(ToWindows1252("a日b😀c\u0100\u0080"), "a?b?c??");
}

TEST(Utf8, ReadsBackWhatItAppendsAndKeepsBytesThatAreNone) {
  for (const char32_t character :
       {0x00U, 0x7FU, 0x80U, 0x7FFU, 0x800U, 0xD7FFU, 0xE000U, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
    std::string text;
    AppendUtf8(text, character);
    const Utf8Step step = ReadUtf8(text, 0);
    EXPECT_TRUE(step.valid);
    EXPECT_EQ(step.character, character);
    EXPECT_EQ(step.length, text.size());
  }
  // Cut short, overlong, surrogates, beyond the last character.
  for (const std::string bad :
       {"\xE9t\xC3", "\xC0\xAF", "\xC1\xBF", "\xE0\x80\xAF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
        "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82"}) {
    EXPECT_FALSE(ReadUtf8(bad, 0).valid) << bad;
    EXPECT_EQ(ToWindows1252(bad), bad);
    EXPECT_EQ(ToLower(bad), bad);
    EXPECT_EQ(ReadableUtf8(bad), FromWindows1252(bad));
  }
  EXPECT_FALSE(ReadUtf8(std::string_view("aè", 2), 1).valid);
  EXPECT_EQ(ReadableUtf8("caff\xE9 perché \x80"), "caffé perché €");
}

TEST(NameOrder, IsWithoutRegardToCaseSmallLettersFirstAndOneForAnyTwoNames) {
  const std::vector<std::string> ordered = {"",      "a",   "A",  "a1",    "a10",  "a_",   "a_b", "ab",
                                            "aZ",    "aZb", "b",  "B",     "zeta", "Zeta", "è",   "È",
                                            "Étage", "été", "ωm", "Ωmega", "ж",    "Ж",    "日本"};
  std::vector<std::string> sorted(ordered.rbegin(), ordered.rend());
  SortNames(sorted);
  EXPECT_EQ(sorted, ordered);
  for (std::size_t i = 0; i < ordered.size(); ++i) {
    for (std::size_t j = 0; j < ordered.size(); ++j) EXPECT_EQ(NameIsBefore(ordered[i], ordered[j]), i < j);
  }
}

TEST(NameOrder, TakesAccentsAndBadBytesForTheSameName) {
  EXPECT_TRUE(IsSameName("CAFFÈ", "caffè") && IsSameName("CAFF\xC8", "caffè"));
  EXPECT_FALSE(IsSameName("caffe", "caffè") || IsSameName("abc", "abcd") || IsSameName("abcd", "abc"));
}

}  // namespace
}  // namespace Morvane
