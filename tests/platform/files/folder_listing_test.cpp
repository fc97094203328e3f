#include <sys/stat.h>

#include "temp_machine.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;

class FolderListingTest : public FilesTest {
 protected:
  FolderListingTest() {
    temp_.MakeFolder("root/d/Zeta");
    temp_.MakeFolder("root/d/alfa");
    temp_.MakeFolder("root/d/.nascosta");
    temp_.Write("root/d/Beta.jpg", "");
    temp_.Write("root/d/alba.jpg", "");
    temp_.Write("root/d/.celata.jpg", "");
    ::mkfifo(temp_.Path("root/d/tubo.jpg").c_str(), 0600);
    Link("alfa", "legame");
    Link("Beta.jpg", "collegata.jpg");
    Link("assente", "rotto.jpg");
    Link("anello.jpg", "anello.jpg");
  }

  void Link(const std::string& target, const std::string& name) const {
    std::filesystem::create_symlink(target, temp_.Path("root/d/" + name));
  }
};

TEST_F(FolderListingTest, ListsPlainFilesAndFollowsLinks) {
  EXPECT_THAT(Machine().PlainFiles("C:\\D\\"), ElementsAre("alba.jpg", "Beta.jpg", "collegata.jpg"));
}

TEST_F(FolderListingTest, ListsFoldersHiddenOnesToo) {
  EXPECT_THAT(Machine().SubFolders("C:\\d"), ElementsAre(".nascosta", "alfa", "legame", "Zeta"));
}

TEST_F(FolderListingTest, ReadsEverythingAtOnce) {
  const FolderEntries entries = Machine().ReadFolder("C:\\d");
  EXPECT_THAT(entries.folders, ElementsAre(".nascosta", "alfa", "legame", "Zeta"));
  EXPECT_THAT(entries.files, ElementsAre(".celata.jpg", "alba.jpg", "Beta.jpg", "collegata.jpg"));
}

TEST_F(FolderListingTest, FindsTheFirstFolderThatIsAccepted) {
  const FileSystem files = Machine();
  EXPECT_EQ(files.FirstSubFolder("C:\\d", [](const std::string&) { return true; }), ".nascosta");
  EXPECT_EQ(
      files.FirstSubFolder("C:\\d", [](const std::string& name) { return name[0] != '.' && name != "alfa"; }),
      "legame");
  EXPECT_EQ(files.FirstSubFolder("C:\\d", [](const std::string&) { return false; }), "");
}

TEST_F(FolderListingTest, TellsWhyAFolderCannotBeRead) {
  Link("giro", "giro");
  const FileSystem files = Machine();
  EXPECT_EQ(NumberOfErrorIn([&] { files.PlainFiles("C:\\manca"); }), ErrorNumber::PathNotFound);
  EXPECT_EQ(NumberOfErrorIn([&] { files.SubFolders("Q:\\"); }), ErrorNumber::PathNotFound);
  EXPECT_EQ(NumberOfErrorIn([&] { files.ReadFolder("C:\\d\\Beta.jpg"); }), ErrorNumber::PathNotFound);
  EXPECT_EQ(NumberOfErrorIn([&] { files.ReadFolder("C:\\d\\giro"); }), ErrorNumber::PathFileAccess);
}

TEST_F(FolderListingTest, FindsOnlyPlainFiles) {
  const FileSystem files = Machine();
  EXPECT_TRUE(files.FileExists("C:\\d\\BETA.jpg"));
  EXPECT_TRUE(files.FileExists("C:\\d\\collegata.jpg"));
  EXPECT_TRUE(files.FileExists("C:\\d\\.celata.jpg"));
  for (const char* name : {"tubo.jpg", "alfa", "rotto.jpg", "anello.jpg", "manca", ""}) {
    EXPECT_FALSE(files.FileExists("C:\\d\\" + std::string(name))) << name;
  }
  EXPECT_TRUE(files.FolderExists("C:\\d\\legame"));
  EXPECT_FALSE(files.FolderExists("C:\\d\\Beta.jpg"));
  EXPECT_FALSE(files.FolderExists("C:\\d\\manca"));
}

}  // namespace
}  // namespace Morvane
