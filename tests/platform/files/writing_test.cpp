#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "temp_machine.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;

class WritingTest : public FilesTest {
 protected:
  WritingTest() { temp_.MakeFolder("root/d"); }

  std::size_t EntriesOfFolder() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(temp_.Path("root/d")), {}));
  }
};

TEST_F(WritingTest, WritesANewFileAsWindows1252) {
  Machine().WriteText("C:\\d\\Nuova è.mvne", "Larg1=€5,5日\r\n");
  EXPECT_EQ(temp_.Read("root/d/Nuova è.mvne"),
            "Larg1=\x80"
            "5,5?\r\n");
  EXPECT_EQ(EntriesOfFolder(), 1U);
}

TEST_F(WritingTest, ReplacesTheFileThatIsThereAndKeepsItsMode) {
  temp_.Write("root/d/Vecchio.txt", "un testo vecchio e lungo");
  ::chmod(temp_.Path("root/d/Vecchio.txt").c_str(), 0640);
  Machine().WriteText("C:\\d\\VECCHIO.TXT", "nuovo");
  EXPECT_EQ(temp_.Read("root/d/Vecchio.txt"), "nuovo");
  EXPECT_EQ(fs::status(temp_.Path("root/d/Vecchio.txt")).permissions(), static_cast<fs::perms>(0640));
  EXPECT_EQ(EntriesOfFolder(), 1U);
}

TEST_F(WritingTest, ReplacesWhatALinkLeadsTo) {
  temp_.Write("root/altrove/vero.txt", "vecchio");
  fs::create_symlink("../altrove/vero.txt", temp_.Path("root/d/link.txt"));
  Machine().WriteText("C:\\d\\link.txt", "nuovo");
  EXPECT_TRUE(fs::is_symlink(temp_.Path("root/d/link.txt")));
  EXPECT_EQ(temp_.Read("root/altrove/vero.txt"), "nuovo");
}

TEST_F(WritingTest, RefusesReadOnlyFilesAndWhatIsNoFile) {
  temp_.Write("root/d/sola.txt", "vecchio");
  ::chmod(temp_.Path("root/d/sola.txt").c_str(), 0444);
  temp_.MakeFolder("root/d/cartella");
  FileSystem files = Machine();
  EXPECT_EQ(NumberOfErrorIn([&] { files.WriteText("C:\\d\\sola.txt", "nuovo"); }),
            ErrorNumber::PathFileAccess);
  EXPECT_EQ(NumberOfErrorIn([&] { files.WriteText("C:\\d\\cartella", "nuovo"); }),
            ErrorNumber::PathFileAccess);
  EXPECT_EQ(NumberOfErrorIn([&] { files.WriteText("C:\\manca\\a.txt", "nuovo"); }),
            ErrorNumber::PathNotFound);
  EXPECT_EQ(temp_.Read("root/d/sola.txt"), "vecchio");
  EXPECT_EQ(EntriesOfFolder(), 2U);
}

TEST_F(WritingTest, RefusesNamesThatCannotBeGiven) {
  FileSystem files = Machine();
  const std::string names[] = {"a/b.txt",
                               "../../fuori.txt",
                               "C:x.txt",
                               "",
                               ".",
                               "..",
                               "sotto\\",
                               std::string(256, 'n'),
                               std::string("a\0b", 3)};
  for (const std::string& name : names) {
    EXPECT_EQ(NumberOfErrorIn([&] { files.WriteText("C:\\d\\" + name, "x"); }), ErrorNumber::BadFileName)
        << name;
  }
  files.WriteText("C:\\d\\" + std::string(255, 'n'), "x");
  EXPECT_EQ(EntriesOfFolder(), 1U);
}

TEST_F(WritingTest, KeepsTheOldFileWholeWhenTheDiskIsFull) {
  temp_.Write("root/d/a.txt", "vecchio");
  FileSystem files = Machine();
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit tight{1000, before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
  const ErrorNumber existing =
      NumberOfErrorIn([&] { files.WriteText("C:\\d\\a.txt", std::string(5000, 'x')); });
  const ErrorNumber fresh = NumberOfErrorIn([&] { files.WriteText("C:\\d\\b.txt", std::string(5000, 'x')); });
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);

  EXPECT_EQ(existing, ErrorNumber::DiskFull);
  EXPECT_EQ(fresh, ErrorNumber::DiskFull);
  EXPECT_EQ(temp_.Read("root/d/a.txt"), "vecchio");
  EXPECT_EQ(EntriesOfFolder(), 1U);
}

// Lets a child run `work` and kills it at its `last`-th stop at a system call. True when the child got to its
// end.
template <typename Work>
bool RunUntilSystemCall(int last, Work work) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::raise(SIGSTOP);
    work();
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  for (int stops = 0; WIFSTOPPED(status); ++stops) {
    if (stops == last) {
      ::kill(child, SIGKILL);
    } else {
      ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    }
    ::waitpid(child, &status, 0);
  }
  return WIFEXITED(status);
}

TEST_F(WritingTest, LeavesTheOldTextOrTheNewOneWhereverTheProgramDies) {
  FileSystem files = Machine();
  const std::string newText(3000, 'n');
  bool finished = false;
  int oldSeen = 0;
  int newSeen = 0;
  for (int last = 0; !finished && last < 500; ++last) {
    temp_.Write("root/d/a.txt", "vecchio");
    finished = RunUntilSystemCall(last, [&] { files.WriteText("C:\\d\\a.txt", newText); });
    const std::string text = temp_.Read("root/d/a.txt");
    ASSERT_TRUE(text == "vecchio" || text == newText) << "system call " << last;
    ++(text == newText ? newSeen : oldSeen);
  }
  EXPECT_TRUE(finished);
  if (oldSeen == 0) GTEST_SKIP() << "this machine lets no process trace another";
  EXPECT_GT(oldSeen, 10);
  EXPECT_GT(newSeen, 2);
}

}  // namespace
}  // namespace Morvane
