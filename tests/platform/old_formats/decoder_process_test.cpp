#include "platform/qt/pictures/decoder_process.h"

#include <gmock/gmock.h>

namespace Morvane {

namespace {

using std::chrono::milliseconds;
using testing::Optional;
using testing::StrEq;

constexpr DecoderLimits kLimits{milliseconds(2000), 1024 * 1024};

std::optional<std::string> Misbehave(const std::string& deed) {
  return RunDecoder(MORVANE_MISBEHAVING_DECODER, deed, "", kLimits);
}

class ForbiddenDeed : public testing::TestWithParam<const char*> {};

TEST(DecoderProcess, LetsAQuietProgramThrough) {
  EXPECT_THAT(Misbehave("nothing"), Optional(StrEq("let through")));
}

TEST_P(ForbiddenDeed, EndsTheProcess) {
  EXPECT_EQ(Misbehave(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(All, ForbiddenDeed,
                         testing::Values("read-file", "write-file", "socket", "fork", "exec", "run-memory",
                                         "memory", "flood", "crash"));

TEST(DecoderProcess, EndsAnEndlessLoopAtTheLimit) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Misbehave("loop"), std::nullopt);
  EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(3500));
}

TEST(DecoderProcess, FeedsAndCollectsMoreThanAPipeHoldsAtTheSameTime) {
  const std::string input(5'000'000, 'x');
  EXPECT_EQ(RunDecoder("/bin/cat", "-", input, {milliseconds(10000), input.size()}), input);
}

TEST(DecoderProcess, SurvivesAProcessThatDoesNotRead) {
  EXPECT_EQ(RunDecoder("/bin/true", "", std::string(5'000'000, 'x'), kLimits), "");
  EXPECT_EQ(RunDecoder("/bin/false", "", std::string(5'000'000, 'x'), kLimits), std::nullopt);
}

TEST(DecoderProcess, GivesNothingForAProgramThatIsNotThere) {
  EXPECT_EQ(RunDecoder("/nowhere/decoder", "emf", "", kLimits), std::nullopt);
}

}  // namespace

}  // namespace Morvane
