#include "core/text.h"

#include <gtest/gtest.h>

namespace Morvane {
namespace {

TEST(Text, TrimsSpacesAtBothEnds) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim("\ta"), "\ta");
}

TEST(Text, ChangesCaseOfAccentedLettersBothWays) {
  EXPECT_EQ(ToUpper("già più ÿ ž ß × œ"), "GIÀ PIÙ Ÿ Ž ß × Œ");
  EXPECT_EQ(ToLower("CITTÀ Ÿ Ž ß ÷ ΆΣ ЖЁ"), "città ÿ ž ß ÷ άσ жё");
}

TEST(Text, PairsEveryLetterWithItselfOnly) {
  for (char32_t c = 0x80; c < 0x2000; ++c) {
    std::string text;
    if (c < 0x800) {
      text = {static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))};
    } else {
      text = {static_cast<char>(0xE0 | (c >> 12)), static_cast<char>(0x80 | ((c >> 6) & 0x3F)),
              static_cast<char>(0x80 | (c & 0x3F))};
    }
    const std::string lower = ToLower(text);
    const std::string upper = ToUpper(text);
    EXPECT_TRUE(lower == text || upper == text) << text;
    EXPECT_EQ(ToUpper(lower), upper) << text;
    EXPECT_EQ(ToLower(upper), lower) << text;
  }
}

TEST(Text, KeepsBytesThatAreNotUtf8) {
  EXPECT_EQ(ToUpper("a\xE0z\xC3"), "A\xE0Z\xC3");
  EXPECT_EQ(ToLower("A\xF0\x9F\x8E\xB5Z"), "a\xF0\x9F\x8E\xB5z");
  EXPECT_FALSE(EqualIgnoringCase("\xE0", "à"));
}

TEST(Text, WritesWordsInProperCase) {
  EXPECT_EQ(ProperCase("MY DISC_01"), "My Disc_01");
  EXPECT_EQ(ProperCase("l'AMORE è già"), "L'amore È Già");
  EXPECT_EQ(ProperCase("(live)  2CD"), "(Live)  2cd");
  EXPECT_EQ(ProperCase("МУЗЫКА ÉTÉ"), "Музыка Été");
}

TEST(Text, ComparesWithoutRegardToCase) {
  EXPECT_TRUE(EqualIgnoringCase("Città.MVNE", "CITTÀ.mvne"));
  EXPECT_TRUE(EqualIgnoringCase("", ""));
  EXPECT_FALSE(EqualIgnoringCase("cd", "cd1"));
  EXPECT_FALSE(EqualIgnoringCase("e", "è"));
}

}  // namespace
}  // namespace Morvane
