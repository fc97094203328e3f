#include "platform/files/app_folder.h"

#include <sys/stat.h>

#include "files_test.h"

namespace Morvane {
namespace {

using ::testing::UnorderedElementsAre;

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
