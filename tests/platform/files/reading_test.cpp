#include <sys/resource.h>
#include <sys/stat.h>

#include "files_test.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;

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

}  // namespace
}  // namespace Morvane
