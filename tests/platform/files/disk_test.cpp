#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <sstream>

#include "files_test.h"
#include "platform/files/app_folder.h"
#include "tests/support/held_text.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

TEST_F(FilesTest, FoldersAreListedInOrderAndLinksFollowed) {
  for (const char* folder : {"d/Zeta", "d/alfa", "d/.nascosta"}) disk.MakeFolder(folder);
  for (const char* file : {"d/Beta.jpg", "d/alba.jpg", "d/.celata.jpg", "d/un\\nome.jpg", "d/caff\xE9.jpg"}) {
    disk.Write(file, "");
  }
  ::mkfifo(disk.Path("d/tubo.jpg").c_str(), 0600);
  Link("alfa", "d/legame");
  Link("Beta.jpg", "d/collegata.jpg");
  Link("assente", "d/rotto.jpg");
  Link("anello.jpg", "d/anello.jpg");

  EXPECT_THAT(files.PlainFiles("C:\\D\\"), ElementsAre("alba.jpg", "Beta.jpg", "caffé.jpg", "collegata.jpg"));
  const auto folders = ElementsAre(".nascosta", "alfa", "legame", "Zeta");
  EXPECT_THAT(files.SubFolders("C:\\d"), folders);
  EXPECT_THAT(files.ReadFolder("C:\\d").folders, folders);
  EXPECT_THAT(files.ReadFolder("C:\\d").files,
              ElementsAre(".celata.jpg", "alba.jpg", "Beta.jpg", "caffé.jpg", "collegata.jpg"));
  for (const std::string only : {"Zeta", "manca"}) {
    const auto accept = [&](const std::string& name) { return name == only; };
    EXPECT_EQ(files.FirstSubFolder("C:\\d", accept), only == "Zeta" ? only : "");
  }
  for (const char* file : {"BETA.jpg", "collegata.jpg", ".celata.jpg", "CAFFÉ.jpg"}) {
    EXPECT_TRUE(files.FileExists(std::string("C:\\d\\") + file)) << file;
    EXPECT_FALSE(files.FolderExists(std::string("C:\\d\\") + file)) << file;
  }
  for (const char* other : {"tubo.jpg", "alfa", "rotto.jpg", "anello.jpg", "manca", "un\\nome.jpg", ""}) {
    EXPECT_FALSE(files.FileExists(std::string("C:\\d\\") + other)) << other;
  }
  for (const auto& [path, there] : {std::pair("d\\legame", true), {"d\\manca", false}, {"D:\\", false}}) {
    EXPECT_EQ(files.FolderExists(path), there) << path;
  }
  EXPECT_EQ(files.ReadFolder("C:\\d").leftOut, 1U);
  EXPECT_EQ(files.FolderIdentity("C:\\d\\legame"), files.FolderIdentity("C:\\D\\ALFA"));
  EXPECT_NE(files.FolderIdentity("C:\\d\\Zeta"), files.FolderIdentity("C:\\d\\alfa"));
}

TEST_F(FilesTest, TheFirstFolderIsTheFirstThatTheDiskTells) {
  for (char name = 'a'; name <= 'z'; ++name) disk.MakeFolder(std::string("d/") + name);
  int asked = 0;
  const auto accept = [&](const std::string&) { return ++asked > 0; };
  EXPECT_NE(files.FirstSubFolder("C:\\d", accept), "");
  EXPECT_EQ(asked, 1);
}

TEST_F(FilesTest, LinesEndAtCarriageReturnsWhereverTheBufferEnds) {
  std::vector<std::pair<std::string, std::vector<std::string>>> texts = {
      {"uno\r\ndue\rtre\r\r\nquat\ntro\r\n", {"uno", "due", "tre", "", "quat\ntro"}},
      {"senza fine", {"senza fine"}},
      {"\r", {""}},
      {"", {}},
      {"perch\xE9 \x80", {"perché €"}}};
  for (const std::size_t length : {16382U, 16383U, 16384U, 50000U}) {
    texts.push_back({std::string(length, 'x') + "\r\nfine\r\n", {std::string(length, 'x'), "fine"}});
  }
  for (const auto& [text, lines] : texts) {
    disk.Write("t.txt", text);
    const auto file = files.OpenForInput("C:\\t.txt");
    std::vector<std::string> read;
    for (std::string line; file->ReadLine(line);) read.push_back(line);
    EXPECT_EQ(read, lines);
    std::string line;
    EXPECT_FALSE(file->ReadLine(line));
  }
  const std::string bytes = std::string("\0\r\n\xFF", 4) + std::string(100000, 'x');
  disk.Write("foto.bin", bytes);
  EXPECT_EQ(files.ReadBytes("C:\\foto.bin"), bytes);
}

TEST_F(FilesTest, TextFilesAreRefusedWhenFewDescriptorsAreLeft) {
  disk.Write("t.txt", "testo\r\n");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  // The least that must stay free is 256, or half of a limit that is not much above.
  for (const auto& [most, free] : {std::pair<rlim_t, rlim_t>{600, 256}, {200, 100}}) {
    const rlimit tight{most, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &tight), 0);
    std::vector<std::unique_ptr<InputFile>> kept;
    EXPECT_EQ(NumberOfErrorIn([&] {
                while (kept.size() < tight.rlim_cur) kept.push_back(files.OpenForInput("C:\\t.txt"));
              }),
              ErrorNumber::TooManyFiles);
    EXPECT_EQ(files.ReadBytes("C:\\t.txt"), "testo\r\n");
    EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_GT(kept.size(), most - free - 50);
    EXPECT_LE(kept.size(), most - free);
  }
}

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

TEST_F(FilesTest, WhatIsRefusedHasItsNumberAndLeavesTheDiskAsItIs) {
  for (const char* name : {"a.txt", "b.txt", "sola.txt", "enorme.bin"}) {
    disk.Write(std::string("d/") + name, name);
  }
  ::chmod(disk.Path("d/sola.txt").c_str(), 0444);
  fs::resize_file(disk.Path("d/enorme.bin"), 512ULL * 1024 * 1024 + 1);
  disk.MakeFolder("d/cartella");
  ::mkfifo(disk.Path("d/tubo").c_str(), 0600);
  Link("/dev/zero", "d/zero");
  Link("anello", "d/anello");
  Link("assente", "d/rotto");

  const std::map<std::string, std::function<void(const std::string&)>> calls = {
      {"read", [&](const auto& path) { files.ReadBytes(path); }},
      {"open", [&](const auto& path) { files.OpenForInput(path); }},
      {"list", [&](const auto& path) { files.PlainFiles(path); }},
      {"folders", [&](const auto& path) { files.SubFolders(path); }},
      {"all", [&](const auto& path) { files.ReadFolder(path); }},
      {"identity", [&](const auto& path) { files.FolderIdentity(path); }},
      {"native", [&](const auto& path) { files.ToNative(path); }},
      {"change", [&](const auto& path) { files.ChDir(path); }},
      {"write", [&](const auto& path) { files.WriteText(path, "nuovo"); }},
      {"kill", [&](const auto& path) { files.Kill(path); }},
      {"move", [&](const auto& path) { files.Name(path, "d\\nuovo.txt"); }},
      {"move-to", [&](const auto& path) { files.Name("d\\a.txt", path); }}};
  const std::string before = Everything();
  ExpectCases("tests/platform/files/refusals.txt", [&](const std::string& given) {
    std::set<std::string> numbers;
    std::istringstream lines(given);
    for (std::string line; std::getline(lines, line);) {
      const std::size_t last = line.rfind(' ') + 1;
      std::istringstream words(line.substr(0, last));
      for (std::string call; words >> call;) {
        SCOPED_TRACE(line);
        numbers.insert(
            std::to_string(static_cast<int>(NumberOfErrorIn([&] { calls.at(call)(line.substr(last)); }))));
      }
    }
    return std::accumulate(numbers.begin(), numbers.end(), std::string());
  });
  EXPECT_EQ(NumberOfErrorIn([&] { files.WriteText(std::string("d\\a\0b", 5), ""); }),
            ErrorNumber::BadFileName);
  EXPECT_EQ(Everything(), before);
}

class AppFolderTest : public FilesTest {
 protected:
  AppFolderTest() {
    disk.Write("share/CD.mvne", "Pagina=0\r\n");
    disk.Write("share/morvane_fileid.txt", "testo");
    disk.MakeFolder("share/sotto");
    ::chmod(disk.Path("share/CD.mvne").c_str(), 0444);
  }

  // A folder that even the superuser cannot write stands for the one of an installed program: it is none.
  AppFolderPlaces places{disk.Path("no-folder"), disk.Path("data"), disk.Path("home"), disk.Path("share")};
};

TEST_F(AppFolderTest, IsFilledWithWritableCopiesAtFirstUseAndThenLeftAsTheUserHasIt) {
  const AppFolder first = FindAppFolder(places);
  EXPECT_EQ(first.path + first.problem, disk.Path("data/morvane"));
  EXPECT_THAT(NamesIn("data/morvane"), UnorderedElementsAre("CD.mvne", "morvane_fileid.txt"));
  EXPECT_EQ(disk.Read("data/morvane/CD.mvne"), "Pagina=0\r\n");
  struct stat info {};
  ASSERT_EQ(::stat(disk.Path("data/morvane/CD.mvne").c_str(), &info), 0);
  EXPECT_NE(info.st_mode & S_IWUSR, 0U);
  disk.Write("data/morvane/CD.mvne", "mio");
  std::filesystem::remove(disk.Path("data/morvane/morvane_fileid.txt"));
  EXPECT_EQ(FindAppFolder(places).path, disk.Path("data/morvane"));
  EXPECT_EQ(disk.Read("data/morvane/CD.mvne"), "mio");
  EXPECT_THAT(NamesIn("data/morvane"), UnorderedElementsAre("CD.mvne"));
}

TEST_F(AppFolderTest, LiesWhereTheSystemSaysAndTheShippedFilesServeWhenNoneCanBeMade) {
  disk.Write("blocked", "");
  disk.Write("taken/morvane", "");
  const std::string own = disk.Path("morvane"), blocked = disk.Path("blocked"), home = disk.Path("home");
  disk.MakeFolder("morvane");
  const struct {
    std::string executable, dataHome, home, shipped, path;
    bool problem;
  } cases[] = {
      {own, disk.Path("data"), home, places.shippedFolder, disk.Path("data/morvane"), false},
      {own, disk.Path("data"), home, disk.Path("no-share"), own, false},
      {own, "", home, places.shippedFolder, disk.Path("home/.local/share/morvane"), false},
      {own, "relativo", home, places.shippedFolder, disk.Path("home/.local/share/morvane"), false},
      {own, blocked, home, places.shippedFolder, places.shippedFolder, true},
      {own, disk.Path("taken"), home, places.shippedFolder, places.shippedFolder, true},
      {blocked + "/x", blocked, home, disk.Path("no-share"), blocked + "/x", true},
      {own, "", "", places.shippedFolder, places.shippedFolder, true},
  };
  for (const auto& [executable, dataHome, userHome, shipped, path, problem] : cases) {
    const AppFolder folder = FindAppFolder({executable, dataHome, userHome, shipped});
    EXPECT_EQ(folder.path, path) << dataHome;
    EXPECT_EQ(!folder.problem.empty(), problem) << folder.problem;
  }
}

}  // namespace
}  // namespace Morvane
