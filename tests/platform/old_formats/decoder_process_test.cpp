#include "platform/qt/pictures/decoder_process.h"

#include <gtest/gtest.h>

#include "platform/old_formats/limits.h"

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

TEST(DecoderProcess, FeedsAndCollectsMoreThanAPipeHoldsAtTheSameTime) {
  const QByteArray input(5'000'000, 'x');
  EXPECT_EQ(RunDecoder("/bin/cat", "-", input, input.size(), milliseconds(10000)), input);
}

TEST(DecoderProcess, SurvivesAProcessThatDoesNotRead) {
  EXPECT_EQ(RunDecoder("/bin/true", "", QByteArray(5'000'000, 'x'), kMostBytes, DecoderLimits::kWallTime),
            "");
  EXPECT_EQ(RunDecoder("/bin/false", "", QByteArray(5'000'000, 'x'), kMostBytes, DecoderLimits::kWallTime),
            std::nullopt);
}

TEST(DecoderProcess, GivesNothingForAProgramThatIsNotThere) {
  EXPECT_EQ(RunDecoder("/nowhere/decoder", "emf", "", kMostBytes, DecoderLimits::kWallTime), std::nullopt);
}

}  // namespace

}  // namespace Morvane
