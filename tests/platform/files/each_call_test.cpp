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
const bool kInMemory = KeepInMemory();

constexpr int kKilled = -1;
constexpr int kOtherFailure = 255;

// What befalls a work: its `call`-th system call, counted from 1, fails with `error`, or it is killed there;
// its first renaming to a free name fails with `renaming`, 0 for none.
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
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
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

// No failure between the first byte that is written and the file's closing may go untold. `calls` are those
// of the work that was hit: how many there are before that one differs by chance.
bool MustBeTold(const std::vector<std::uint64_t>& calls, std::size_t hit) {
  if (hit > calls.size() || IsLetThrough(calls[hit - 1])) return false;
  const auto last = calls.begin() + static_cast<std::ptrdiff_t>(hit) - 1;
  const auto written = std::find(calls.begin(), last + 1, SYS_write);
  return written != last + 1 && std::find(written, last, SYS_close) == last;
}

class EachCall : public FilesTest {
 protected:
  // What a work finds; C:\dati is the user's data folder, C:\share what is shipped.
  void LayOut() const {
    for (const auto& entry : fs::directory_iterator(disk.Path())) fs::remove_all(entry);
    for (const char* name : {"d/a.txt", "d/b.txt", "share/CD.mvne", "share/DVD.mvne"})
      disk.Write(name, std::string("vecchio ") + name);
    for (const char* folder : {"e", "dati", "d/sotto"}) disk.MakeFolder(folder);
    fs::permissions(disk.Path("d/a.txt"), fs::perms::owner_read | fs::perms::owner_write);
  }
  // On a disk whose renaming fails, if at all, as told. The calls of the work undisturbed.
  std::vector<std::uint64_t> FailEach(const Work& work, int renaming) {
    LayOut();
    const std::string before = Everything();
    const Outcome whole = Do(work, {0, 0, renaming});
    const std::string after = Everything();
    if (whole.told != 0) return {};
    if (renaming == 0) done_ = after;
    EXPECT_TRUE(after == done_ && after != before) << after;
    for (const int error : {EIO, kKilled}) {
      if (error == kKilled && renaming != 0) continue;  // the file may have both names then
      for (std::size_t n = 1, calls = 1; n <= calls; ++n) {
        LayOut();
        const Outcome outcome = Do(work, {n, error, renaming});
        calls = outcome.told == kKilled ? whole.calls.size() : outcome.calls.size();
        const std::string left = Everything(outcome.told != kKilled);
        const bool isOld = left == before;
        const bool isNew = left == after;
        const bool isRight = outcome.told == 0 ? isNew && !MustBeTold(outcome.calls, n) : isOld;
        EXPECT_TRUE(outcome.told == kKilled ? isOld || isNew : isRight)
            << "system call " << n << " with error " << error << ", told " << outcome.told << "; left:\n"
            << left;
      }
    }
    return whole.calls;
  }

 private:
  std::string done_;
};

TEST_F(EachCall, ThatFailsIsToldAndChangesNothingElseAllIsDoneAndSoItIsWhereverTheMachineDies) {
  const std::string text(3000, 'n');
  const AppFolderPlaces places{"", disk.Path("dati"), "", disk.Path("share")};
  const std::pair<const char*, Work> works[] = {
      {"written over", [&] { files.WriteText("C:\\d\\a.txt", text); }},
      {"written", [&] { files.WriteText("C:\\d\\nuovo.txt", text); }},
      {"moved", [&] { files.Name("C:\\d\\a.txt", "C:\\e\\nuovo.txt"); }},
      {"respelt", [&] { files.Name("C:\\d\\a.txt", "C:\\d\\A.txt"); }},
      {"deleted", [&] { files.Kill("C:\\d\\a.txt"); }},
      {"filled", [&] {
         const bool found = FindAppFolder(places).path != places.shippedFolder;
         if (!found && !fs::exists(disk.Path("dati/morvane"))) throw std::runtime_error("not filled");
       }}};
  for (const auto& [name, work] : works) {
    SCOPED_TRACE(name);
    std::vector<std::uint64_t> calls = FailEach(work, 0);
    if (calls.empty()) GTEST_SKIP() << "this machine lets no process trace another";
    const bool takesFreeName = std::count(calls.begin(), calls.end(), SYS_renameat2) == 1;
    // To another volume, and on a medium that knows no such renaming.
    for (const int renaming : {EXDEV, EINVAL}) {
      const bool isDone = takesFreeName && !FailEach(work, renaming).empty();
      EXPECT_TRUE(isDone || std::string(name) != "moved") << renaming;
    }
    std::erase_if(calls,
                  [](auto call) { return call != SYS_fsync && call != SYS_rename && call != SYS_renameat2; });
    if (std::string(name).starts_with("written")) {
      EXPECT_THAT(calls, ElementsAre(SYS_fsync, testing::Ne(SYS_fsync), SYS_fsync)) << "text, name, folder";
    }
  }
}

TEST_F(EachCall, ThatFailsIsToldElseAllIsRead) {
  disk.Write("d/lungo.txt", std::string(20'000, 'x') + "\r\nfine\r\n");
  disk.MakeFolder("d/sotto");
  const std::function<std::string()> readings[] = {
      [&] { return files.ReadBytes("C:\\D\\Lungo.txt"); },
      [&] {
        std::string all;
        const auto file = files.OpenForInput("C:\\d\\lungo.txt");
        for (std::string line; file->ReadLine(line);) all += line;
        return all;
      },
      [&] { return files.ReadFolder("C:\\d").files.at(0) + files.FolderIdentity("C:\\d\\sotto"); }};
  for (const auto& read : readings) {
    const std::string all = read();
    const Work work = [&] {
      if (read() != all) throw std::logic_error("something else was read");
    };
    for (std::size_t n = 1, calls = 1; n <= calls; ++n) {
      const Outcome outcome = Do(work, {n, EIO});
      calls = outcome.calls.size();
      EXPECT_NE(outcome.told, kOtherFailure) << "call " << n << " of the reading of " << all.substr(0, 20);
    }
  }
}

TEST_F(EachCall, ThatFailsInTheMiddleOfAFolderKeepsTheNamesAlreadyFound) {
  constexpr std::size_t kMoreThanOneCallTells = 3000;
  for (std::size_t i = 0; i < kMoreThanOneCallTells; ++i) disk.Write("d/" + std::to_string(i), "");
  const Work findSome = [&] {
    const std::size_t found = files.PlainFiles("C:\\d").size();
    if (found == 0 || found == kMoreThanOneCallTells) throw std::logic_error("none or all");
  };
  bool someFound = false;
  for (std::size_t n = 1, calls = 1; n <= calls; ++n) {
    const Outcome outcome = Do(findSome, {n, EIO});
    calls = outcome.calls.size();
    someFound = someFound || outcome.told == 0;
  }
  EXPECT_TRUE(someFound);
}

}  // namespace
}  // namespace Morvane

#endif
