#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/case_folding.h"
#include "platform/files/name_order.h"
#include "platform/utf8.h"
#include "platform/windows_1252.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;

TEST(Windows1252, KeepsEachByteOnTheWayToUtf8AndBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(ToWindows1252(FromWindows1252(bytes)), bytes);
}

TEST(Windows1252, TranslatesItsSpecialCharactersAndAccents) {
  EXPECT_EQ(FromWindows1252("\x80 \x93perch\xE9\x94 \x81"), "€ “perché” \u0081");
  EXPECT_EQ(ToWindows1252("€ “perché” Ÿ"), "\x80 \x93perch\xE9\x94 \x9F");
}

TEST(Windows1252, WritesAQuestionMarkForEachCharacterOutside) {
  EXPECT_EQ(ToWindows1252("a日b😀c\u0100"), "a?b?c?");
}

TEST(Windows1252, KeepsBytesThatAreNoUtf8) {
  const std::string truncatedOverlongSurrogateBeyond =
      "\xE9t\xC3 \xC0\xAF \xE0\x80\xAF \xED\xA0\x80 \xF4\x90\x80\x80 \xE2\x82";
  EXPECT_EQ(ToWindows1252(truncatedOverlongSurrogateBeyond), truncatedOverlongSurrogateBeyond);
  EXPECT_EQ(ToLower(truncatedOverlongSurrogateBeyond), truncatedOverlongSurrogateBeyond);
  EXPECT_EQ(ReadableUtf8("caff\xE9 perché \x80"), "caffé perché €");
  EXPECT_EQ(ReadableUtf8("\xED\xA0\x80"), "í\u00A0€");
}

TEST(Utf8, ReadsBackWhatItAppends) {
  for (const char32_t character :
       {0x00U, 0x7FU, 0x80U, 0x7FFU, 0x800U, 0xD7FFU, 0xE000U, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
    std::string text;
    AppendUtf8(text, character);
    const Utf8Step step = ReadUtf8(text, 0);
    EXPECT_TRUE(step.valid);
    EXPECT_EQ(step.character, character);
    EXPECT_EQ(step.length, text.size());
  }
}

TEST(NameOrder, SortsWithoutRegardToCaseAndDeterministically) {
  std::vector<std::string> ascii = {"b", "B", "a_b", "aZb", "A", "a10", "a1", ""};
  SortNames(ascii);
  EXPECT_THAT(ascii, ElementsAre("", "A", "a1", "a10", "a_b", "aZb", "b", "B"));

  std::vector<std::string> accented = {"zeta", "été", "Étage", "Zeta", "alfa"};
  SortNames(accented);
  EXPECT_THAT(accented, ElementsAre("alfa", "zeta", "Zeta", "Étage", "été"));
}

TEST(NameOrder, ComparesOneNameAsItSortsMany) {
  const std::vector<std::string> names = {"",  "a",  "A",     "ab", "a_", "aZ", "è",
                                          "È", "èa", "Ωmega", "ωm", "Ж",  "ж",  "日本"};
  for (const std::string& left : names) {
    for (const std::string& right : names) {
      std::vector<std::string> sorted = {right, left};
      SortNames(sorted);
      EXPECT_EQ(NameIsBefore(left, right), left != right && sorted.front() == left) << left << " " << right;
    }
  }
}

TEST(NameOrder, TakesAccentsAndBadBytesForTheSameName) {
  EXPECT_TRUE(IsSameName("CAFFÈ", "caffè"));
  EXPECT_TRUE(IsSameName("CAFF\xC8", "caffè"));
  EXPECT_FALSE(IsSameName("caffe", "caffè"));
  EXPECT_FALSE(IsSameName("abc", "abcd"));
}

}  // namespace
}  // namespace Morvane
