#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "files_test.h"

namespace Morvane {

void WithFullDisk(std::size_t bytes, const std::function<void()>& work) {
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit tight{bytes, before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
  work();
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
}

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

TEST_F(FilesTest, TextReplacesTheFileThatIsMeantAndKeepsItsModeAndLinks) {
  disk.Write("d/Vecchio.txt", "un testo vecchio e lungo");
  disk.Write("altrove/vero.txt", "vecchio");
  Link("../altrove/vero.txt", "d/link.txt");
  ::chmod(disk.Path("d/Vecchio.txt").c_str(), 0640);
  const std::string longest(255, 'n');
  for (const std::string name : {"VECCHIO.TXT", "link.txt", "Nuova è.mvne", longest.c_str()}) {
    files.WriteText("C:\\d\\" + name, "Larg1=€5,5日\r\n");
  }
  for (const std::string name : {"d/Vecchio.txt", "altrove/vero.txt", "d/Nuova è.mvne"}) {
    EXPECT_EQ(disk.Read(name),
              "Larg1=\x80"
              "5,5?\r\n")
        << name;
  }
  EXPECT_EQ(fs::status(disk.Path("d/Vecchio.txt")).permissions(), static_cast<fs::perms>(0640));
  EXPECT_TRUE(fs::is_symlink(disk.Path("d/link.txt")));
  EXPECT_THAT(NamesIn("d"), UnorderedElementsAre("Vecchio.txt", "link.txt", "Nuova è.mvne", longest));
}

TEST_F(FilesTest, FilesAreRenamedMovedAndDeletedAsTyped) {
  for (const char* name : {"d/a.jpg", "d/b.jpg", "d/c.jpg", "d/e.jpg"}) disk.Write(name, name);
  disk.MakeFolder("altra");
  Link("assente", "d/rotto");
  files.Name("C:\\d\\A.jpg", "C:\\d\\Caffè?.jpg");
  files.Name("C:\\d\\b.jpg", "C:\\d\\..\\ALTRA\\b2.jpg");
  files.Name("C:\\d\\c.jpg", "C:\\d\\c.jpg");
  files.Name("C:\\d\\c.jpg", "C:\\d\\C.JPG");
  files.Kill("C:\\D\\E.JPG");
  files.Kill("C:\\d\\rotto");
  EXPECT_EQ(disk.Read("d/Caffè?.jpg") + disk.Read("altra/b2.jpg") + disk.Read("d/C.JPG"),
            "d/a.jpgd/b.jpgd/c.jpg");
  EXPECT_THAT(NamesIn("d"), UnorderedElementsAre("C.JPG", "Caffè?.jpg"));
}

TEST_F(FilesTest, MovingToAnotherVolumeCopiesAndReplacesNothing) {
  disk.MakeFolder("volume");
  const std::string mountPoint = disk.Path("volume");
  if (::mount("none", mountPoint.c_str(), "tmpfs", 0, "size=64k") != 0)
    GTEST_SKIP() << "mounting is not permitted";
  const std::string large(200000, 'g');
  disk.Write("volume/b.jpg", "altro");
  for (const char* name : {"d/a.jpg", "d/b.jpg"}) disk.Write(name, name);
  disk.Write("d/grande.jpg", large);
  ::chmod(disk.Path("d/a.jpg").c_str(), 0640);
  const auto numberOfMoving = [&](const std::string& name) {
    return NumberOfErrorIn([&] { files.Name("C:\\d\\" + name, "C:\\volume\\" + name); });
  };
  files.Name("C:\\d\\a.jpg", "C:\\volume\\a.jpg");
  const std::string moved = disk.Read("volume/a.jpg");
  const fs::perms mode = fs::status(disk.Path("volume/a.jpg")).permissions();
  const ErrorNumber taken = numberOfMoving("b.jpg");
  const ErrorNumber full = numberOfMoving("grande.jpg");
  const std::vector<std::string> names = files.ReadFolder("C:\\volume").files;
  ::umount(mountPoint.c_str());

  EXPECT_EQ(moved, "d/a.jpg");
  EXPECT_EQ(mode, static_cast<fs::perms>(0640));
  EXPECT_EQ(taken, ErrorNumber::FileAlreadyExists);
  EXPECT_EQ(full, ErrorNumber::DiskFull);
  EXPECT_THAT(names, ElementsAre("a.jpg", "b.jpg"));
  EXPECT_THAT(NamesIn("d"), UnorderedElementsAre("b.jpg", "grande.jpg"));
  EXPECT_EQ(disk.Read("d/grande.jpg"), large);
}

TEST_F(FilesTest, TheOldFileStaysWholeWhenTheDiskIsFull) {
  disk.Write("d/a.txt", "vecchio");
  std::vector<ErrorNumber> numbers;
  WithFullDisk(1000, [&] {
    for (const char* path : {"C:\\d\\a.txt", "C:\\d\\b.txt"}) {
      numbers.push_back(NumberOfErrorIn([&] { files.WriteText(path, std::string(5000, 'x')); }));
    }
  });
  EXPECT_THAT(numbers, ElementsAre(ErrorNumber::DiskFull, ErrorNumber::DiskFull));
  EXPECT_EQ(disk.Read("d/a.txt"), "vecchio");
  EXPECT_THAT(NamesIn("d"), ElementsAre("a.txt"));
}

// Lets a child run `work` and kills it at its `last`-th stop at a system call. True when the child got to its
// end. `calls` becomes the numbers of the system calls that it began.
bool RunUntilSystemCall(int last, const std::function<void()>& work, std::vector<std::uint64_t>& calls) {
  calls.clear();
  const pid_t child = ::fork();
  if (child == 0) {
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::raise(SIGSTOP);
    work();
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);
  for (int stops = 0; WIFSTOPPED(status); ++stops) {
    if (stops == last) {
      ::kill(child, SIGKILL);
    } else {
      __ptrace_syscall_info info{};
      ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
      if (info.op == PTRACE_SYSCALL_INFO_ENTRY) calls.push_back(info.entry.nr);
      ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    }
    ::waitpid(child, &status, 0);
  }
  return WIFEXITED(status);
}

TEST_F(FilesTest, TheOldTextOrTheNewOneIsLeftWhereverTheProgramOrTheMachineDies) {
  const std::string newText(3000, 'n');
  std::vector<std::uint64_t> calls;
  bool finished = false;
  int oldSeen = 0;
  int newSeen = 0;
  for (int last = 0; !finished && last < 500; ++last) {
    disk.Write("d/a.txt", "vecchio");
    finished = RunUntilSystemCall(
        last, [&] { files.WriteText("C:\\d\\a.txt", newText); }, calls);
    const std::string text = disk.Read("d/a.txt");
    ASSERT_TRUE(text == "vecchio" || text == newText) << "system call " << last;
    ++(text == newText ? newSeen : oldSeen);
  }
  EXPECT_TRUE(finished);
  if (oldSeen == 0) GTEST_SKIP() << "this machine lets no process trace another";
  EXPECT_GT(oldSeen, 10);
  EXPECT_GT(newSeen, 2);
  std::erase_if(calls,
                [](auto call) { return call != SYS_fsync && call != SYS_rename && call != SYS_renameat2; });
  EXPECT_THAT(calls, ElementsAre(SYS_fsync, testing::Ne(SYS_fsync), SYS_fsync)) << "text, name, folder";
}

}  // namespace
}  // namespace Morvane
