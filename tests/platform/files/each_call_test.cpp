// Calls can be made to fail on this kind of processor only.
#ifdef __x86_64__
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

#include "files_test.h"
#include "platform/files/app_folder.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using Work = std::function<void()>;

// A disk in memory: waiting for a real one takes most of the time.
const bool kInMemory = ::access("/dev/shm", W_OK) == 0 && ::setenv("TMPDIR", "/dev/shm", 1) == 0;

constexpr int kKilled = -1;
constexpr int kOtherFailure = 255;

// What befalls a work: its `call`-th system call, counted from 1, fails with `error`, or it is killed there;
// its first renaming to a free name fails with `renaming`, 0 for none; where that is ENOSYS the medium has no
// second names either.
struct Blow {
  std::size_t call = 0;
  int error = 0;
  int renaming = 0;
};

struct Outcome {
  std::vector<std::uint64_t> calls;  // numbers of the system calls that were begun
  int told = 0;                      // number of the run-time error, 0 for none; kKilled
};

int NumberTold(const Work& work) try {
  work();
  return 0;
} catch (const RuntimeError& error) {
  return static_cast<int>(error.Number());
} catch (const std::exception&) {
  return kOtherFailure;
}

// Memory, locks, modes, the end, and what the sanitizers ask at each exception.
bool IsLetThrough(std::uint64_t call) {
  constexpr std::array kLetThrough = {SYS_exit_group, SYS_futex,  SYS_brk,        SYS_mmap,
                                      SYS_munmap,     SYS_fchmod, SYS_sigaltstack};
  return std::find(kLetThrough.begin(), kLetThrough.end(), call) != kLetThrough.end();
}

// The error of the call that was begun last, 0 for none.
int ErrorOf(const std::vector<std::uint64_t>& calls, const Blow& blow) {
  const std::uint64_t call = calls.empty() ? SYS_exit_group : calls.back();
  if (call == SYS_renameat2 && std::count(calls.begin(), calls.end(), call) == 1 && blow.renaming != 0)
    return blow.renaming;
  if (call == SYS_link && blow.renaming == ENOSYS) return EPERM;
  return calls.size() == blow.call && !IsLetThrough(call) ? blow.error : 0;
}

// A call that begins is none; when it has ended, so has its error.
void Fail(pid_t child, bool begins, int error) {
  const std::size_t place = begins ? offsetof(user, regs.orig_rax) : offsetof(user, regs.rax);
  ::ptrace(PTRACE_POKEUSER, child, place, begins ? -1L : -error);
}

Outcome Do(const Work& work, const Blow& blow) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(0);
    ::raise(SIGSTOP);
    ::_exit(NumberTold(work));
  }
  Outcome outcome;
  int status = 0;
  ::waitpid(child, &status, 0);
  ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);
  while (WIFSTOPPED(status)) {
    __ptrace_syscall_info info{};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
    const bool begins = info.op == PTRACE_SYSCALL_INFO_ENTRY;
    if (begins) outcome.calls.push_back(info.entry.nr);
    const int error = ErrorOf(outcome.calls, blow);
    if (error == kKilled) {
      ::kill(child, SIGKILL);
    } else if (error != 0) {
      Fail(child, begins, error);
    }
    ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    ::waitpid(child, &status, 0);
  }
  outcome.told = WIFEXITED(status) ? WEXITSTATUS(status) : kKilled;
  return outcome;
}

// No failure between the first byte that is written and the file's closing may go untold.
bool MustBeTold(const std::vector<std::uint64_t>& calls, std::size_t hit) {
  if (hit > calls.size() || IsLetThrough(calls[hit - 1])) return false;
  const auto last = calls.begin() + static_cast<std::ptrdiff_t>(hit) - 1;
  const auto written = std::find(calls.begin(), last + 1, SYS_write);
  return written != last + 1 && std::find(written, last, SYS_close) == last;
}

class EachCall : public FilesTest {
 protected:
  void SetUp() override {
    if (Do([] {}, {}).calls.empty()) GTEST_SKIP() << "this machine lets no process trace another";
    for (std::size_t i = 0; i < kMoreThanOneCallTells; ++i) many.Write(std::to_string(i), "");
  }

  // What a work finds; C:\dati is the user's data folder, C:\share what is shipped.
  void LayOut() const {
    for (const auto& entry : fs::directory_iterator(disk.Path())) fs::remove_all(entry);
    for (const char* name : {"d/a.txt", "d/b.txt", "share/CD.mvne", "share/DVD.mvne"})
      disk.Write(name, std::string("vecchio ") + name);
    disk.Write("lungo.txt", kLong + "\r\nfine\r\n");
    for (const char* folder : {"e", "dati", "d/sotto"}) fs::create_directory(disk.Path(folder));
    fs::create_symlink(many.Path(), disk.Path("molti"));
    fs::permissions(disk.Path("d/a.txt"), fs::perms::owner_read | fs::perms::owner_write);
  }
  // One call after the other is hit; the last time none is left to be. What is told is noted.
  void HitEach(const Work& work, Blow blow, const std::string& before, const std::string& after) {
    for (std::size_t calls = blow.call = 1; blow.call <= calls; ++blow.call) {
      LayOut();
      const Outcome outcome = Do(work, blow);
      const bool isKilled = outcome.told == kKilled;
      const std::string left = Everything(!isKilled);
      const bool isRight = outcome.told == 0 ? left == after && !MustBeTold(outcome.calls, blow.call)
                                             : left == before || (isKilled && left == after);
      EXPECT_TRUE(isRight && outcome.told != kOtherFailure)
          << "call " << blow.call << ", told " << outcome.told << "; left:\n"
          << left;
      calls = isKilled ? blow.call + 1 : outcome.calls.size();
      told.insert(outcome.told);
    }
  }
  static void Need(bool isAll) {
    if (!isAll) throw std::logic_error("something else was read");
  }

  static constexpr std::size_t kMoreThanOneCallTells = 3000;
  static constexpr ErrorNumber kSomeFound = ErrorNumber::Overflow;  // which no file raises
  const std::string kLong = std::string(20'000, 'x');
  const TemporaryFolder many;
  std::set<int> told;
};

TEST_F(EachCall, ThatFailsIsToldAndChangesNothingElseAllIsDoneAndSoItIsWhereverTheMachineDies) {
  const std::string text(3000, 'n');
  const AppFolderPlaces places{"", disk.Path("dati"), "", disk.Path("share")};
  const std::pair<std::string, Work> works[] = {
      {"written over", [&] { files.WriteText("C:\\d\\a.txt", text); }},
      {"written", [&] { files.WriteText("C:\\d\\nuovo.txt", text); }},
      {"moved", [&] { files.Name("C:\\d\\a.txt", "C:\\e\\nuovo.txt"); }},
      {"respelt", [&] { files.Name("C:\\d\\a.txt", "C:\\d\\A.txt"); }},
      {"deleted", [&] { files.Kill("C:\\d\\a.txt"); }},
      {"filled",
       [&] {
         const bool found = FindAppFolder(places).path != places.shippedFolder;
         if (!found && !fs::exists(disk.Path("dati/morvane")))
           throw RuntimeError(ErrorNumber::DiskNotReady, "not filled");
       }},
      {"read", [&] { Need(files.ReadBytes("C:\\Lungo.txt") == kLong + "\r\nfine\r\n"); }},
      {"read by lines",
       [&] {
         std::string line;
         const auto file = files.OpenForInput("C:\\lungo.txt");
         Need(file->ReadLine(line) && line == kLong && file->ReadLine(line) && line == "fine");
       }},
      {"listed",
       [&] { Need(files.ReadFolder("C:\\").files.size() == 1 && !files.FolderIdentity("C:\\D").empty()); }},
      {"found", [&] {
         const std::size_t found = files.PlainFiles("C:\\molti").size();
         Need(found > 0);
         if (found < kMoreThanOneCallTells) throw RuntimeError(kSomeFound, "fewer");
       }}};
  for (const auto& [name, work] : works) {
    std::string done;
    // A renaming to a free name may lead to another volume, or be unknown to the medium.
    for (const int renaming : {0, EXDEV, EINVAL, ENOSYS}) {
      SCOPED_TRACE(name + std::to_string(renaming));
      LayOut();
      const std::string before = Everything();
      const Outcome whole = Do(work, {0, 0, renaming});
      const std::string after = Everything();
      EXPECT_TRUE(whole.told == 0 || (renaming == EXDEV && name != "moved"));
      if (whole.told != 0) continue;
      if (renaming == 0) done = after;
      EXPECT_EQ(after, done);
      HitEach(work, {0, EIO, renaming}, before, after);
      if (renaming != 0) continue;  // killed, the file may have both names
      HitEach(work, {0, kKilled}, before, after);
      if (name[0] != 'w') continue;
      std::vector<std::uint64_t> flushed;
      std::ranges::copy_if(whole.calls, std::back_inserter(flushed), [](auto call) {
        return call == SYS_fsync || call == SYS_rename || call == SYS_renameat2;
      });
      EXPECT_THAT(flushed, ElementsAre(SYS_fsync, testing::Ne(SYS_fsync), SYS_fsync)) << "text, name, folder";
    }
  }
  EXPECT_TRUE(told.contains(static_cast<int>(kSomeFound))) << "of a folder what was found by then is there";
}

}  // namespace
}  // namespace Morvane

#endif
