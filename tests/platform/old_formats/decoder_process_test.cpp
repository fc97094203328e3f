#include <gtest/gtest.h>

#include "platform/old_formats/limits.h"
#include "platform/qt/pictures/old_formats.h"
#include "platform/qt/pictures/svg_references.h"
#include "tests/support/held_text.h"

namespace Morvane {

namespace {

using std::chrono::milliseconds;

constexpr qsizetype kMostBytes = 1024 * 1024;

std::optional<QByteArray> Misbehave(const char* deed) {
  return RunDecoder(MORVANE_MISBEHAVING_DECODER, deed, "", kMostBytes, DecoderLimits::kWallTime);
}

TEST(DecoderProcess, EndsWithAForbiddenDeedAndAtItsLimits) {
  EXPECT_EQ(Misbehave("nothing"), "let through");
  for (const char* deed : {"read-file", "write-file", "socket", "fork", "exec", "run-memory", "memory",
                           "flood", "crash", "loop"}) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Misbehave(deed), std::nullopt) << deed;
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(3500)) << deed;
  }
}

TEST(DecoderProcess, FeedsAndCollectsMoreThanAPipeHoldsAndSurvivesWhatDoesNotReadOrIsNotThere) {
  const QByteArray input(5'000'000, 'x');
  const auto run = [&](const char* program, const char* argument, qsizetype mostBytes) {
    return RunDecoder(program, argument, input, mostBytes, milliseconds(10000));
  };
  EXPECT_EQ(run("/bin/cat", "-", input.size()), input);
  EXPECT_EQ(run("/bin/cat", "-", input.size() - 1), std::nullopt);
  EXPECT_EQ(run("/bin/true", "", kMostBytes), "");
  EXPECT_EQ(run("/bin/false", "", kMostBytes), std::nullopt);
  EXPECT_EQ(run("/nowhere/decoder", "emf", kMostBytes), std::nullopt);
}

TEST(SvgReferences, AreAcceptedOnlyWhereTheyStayInside) {
  ExpectCases("tests/platform/old_formats/svg_references.txt", [](const std::string& given) {
    const bool accepted = RefersOnlyToItself(QByteArray::fromStdString(given).chopped(1));
    return accepted ? "accepted" : "refused";
  });
}

}  // namespace

}  // namespace Morvane
