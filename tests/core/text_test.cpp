#include "core/text.h"

#include <gtest/gtest.h>

namespace Morvane {
namespace {

TEST(Text, TrimsSpacesAtBothEnds) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim("\ta"), "\ta");
}

TEST(Text, ComparesWithoutRegardToCase) {
  EXPECT_TRUE(EqualIgnoringCase("Città.MVNE", "CITTÀ.mvne"));
  EXPECT_TRUE(EqualIgnoringCase("", ""));
  EXPECT_FALSE(EqualIgnoringCase("cd", "cd1"));
  EXPECT_FALSE(EqualIgnoringCase("e", "è"));
}

}  // namespace
}  // namespace Morvane
