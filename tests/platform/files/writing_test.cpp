#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "files_test.h"
#include "platform/files/app_folder.h"

namespace Morvane {

namespace {

namespace fs = std::filesystem;
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

// A disk that takes files of so many bytes only is as good as full.
TEST_F(FilesTest, AFullDiskIsToldAndLeavesWhatWasThere) {
  disk.Write("d/a.txt", "vecchio");
  disk.Write("share/Grande.mvne", std::string(5000, ';'));
  disk.MakeFolder("data");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit tight{1000, before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
  std::vector<ErrorNumber> numbers;
  for (const char* path : {"C:\\d\\a.txt", "C:\\d\\b.txt"}) {
    numbers.push_back(NumberOfErrorIn([&] { files.WriteText(path, std::string(5000, 'x')); }));
  }
  const AppFolder folder = FindAppFolder({"", disk.Path("data"), "", disk.Path("share")});
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_THAT(numbers, testing::Each(ErrorNumber::DiskFull));
  EXPECT_EQ(folder.problem, "Disco pieno: " + disk.Path("data/morvane"));
  EXPECT_EQ(disk.Read("d/a.txt"), "vecchio");
  EXPECT_THAT(NamesIn("d"), testing::ElementsAre("a.txt"));
}

}  // namespace
}  // namespace Morvane
