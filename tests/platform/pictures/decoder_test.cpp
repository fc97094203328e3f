#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/old_formats/limits.h"
#include "platform/old_formats/lock_down.h"
#include "platform/qt/pictures/old_formats.h"
#include "platform/qt/pictures/svg_references.h"
#include "tests/support/held_text.h"

namespace Morvane {
namespace {

// What a program that locked itself down does then.
const std::map<std::string, std::function<void()>> kForbidden = {
    {"read a file", [] { open("/etc/hostname", O_RDONLY); }},
    {"write a file", [] { open("locked_down.txt", O_WRONLY | O_CREAT, 0600); }},
    {"ask the network", [] { socket(AF_INET, SOCK_STREAM, 0); }},
    {"have a process", [] { fork(); }},
    {"run a program", [] { execl("/bin/true", "true", nullptr); }},
    {"run memory", [] { mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0); }},
};

TEST(LockDownDeathTest, EndsWithAForbiddenDeedAndHasSoMuchMemory) {
  constexpr int kDone = 7;
  const auto act = [](const std::function<void()>& deed) {
    if (LockDown()) deed();
    _exit(kDone);
  };
  for (const auto& [name, deed] : kForbidden)
    EXPECT_EXIT(act(deed), testing::KilledBySignal(SIGSYS), "") << name;
  const auto canTake = [](std::size_t bytes) {
    return mmap(nullptr, bytes, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) != MAP_FAILED;
  };
  EXPECT_EXIT(_exit(LockDown() && !canTake(DecoderLimits::kMemoryBytes) ? kDone : 0),
              testing::ExitedWithCode(kDone), "");
}

TEST(DecoderProcess, GivesWhatItWroteWhenItEndsWellWithinItsLimits) {
  constexpr std::chrono::milliseconds kTime(10000), kShortTime(1500);
  const QByteArray large(5'000'000, '#');  // more than a pipe holds; to a shell a remark
  const std::pair<QByteArray, std::optional<QByteArray>> ends[] = {
      {"printf drawing", "drawing"},   {"printf drawing; exit 1", std::nullopt},
      {"kill -SEGV $$", std::nullopt}, {"while :; do :; done", std::nullopt},
      {"exec yes", std::nullopt},      {"exit\n" + large, ""}};
  for (const auto& [deed, answer] : ends) {
    const auto start = std::chrono::steady_clock::now();
    const auto time = answer ? kTime : kShortTime;
    EXPECT_EQ(RunDecoder("/bin/sh", "-s", deed, 1 << 20, time), answer) << deed.left(20).data();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2 * time) << deed.left(20).data();
  }
  EXPECT_EQ(RunDecoder("/bin/cat", "-", large, large.size(), kTime), large);
  EXPECT_EQ(RunDecoder("/bin/cat", "-", large, large.size() - 1, kTime), std::nullopt);
  EXPECT_EQ(RunDecoder("/nowhere/decoder", "emf", large, large.size(), kTime), std::nullopt);
}

TEST(DecoderProcess, IsBelievedOnlyWhatWasAgreed) {
  for (const OldFormat format : {OldFormat::Emf, OldFormat::Wmf, OldFormat::Iff})
    EXPECT_EQ(DecodeOldFormat("/bin/echo", format, ""), std::nullopt);
}

TEST(SvgReferences, AreAcceptedOnlyWhereTheyStayInside) {
  ExpectCases("tests/platform/pictures/svg_references.txt", [](const std::string& given) {
    const bool accepted = RefersOnlyToItself(QByteArray::fromStdString(given).chopped(1));
    return accepted ? "accepted" : "refused";
  });
}

}  // namespace
}  // namespace Morvane
