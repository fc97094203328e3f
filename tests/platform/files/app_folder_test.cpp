#include "platform/files/app_folder.h"

#include <sys/stat.h>

#include "temp_machine.h"

namespace Morvane {
namespace {

class AppFolderTest : public ::testing::Test {
 protected:
  AppFolderTest() {
    temp_.Write("share/CD.mvne", "Pagina=0\r\n");
    temp_.Write("share/morvane_fileid.txt", "testo");
    ::chmod(temp_.Path("share/CD.mvne").c_str(), 0444);
  }

  // A folder that even the superuser cannot write stands for the one of an installed program: it is none.
  AppFolderPlaces Installed() const {
    return {temp_.Path("no-folder"), temp_.Path("data"), temp_.Path("home"), temp_.Path("share")};
  }

  TempFolder temp_;
};

TEST_F(AppFolderTest, IsTheExecutablesOwnWhenItCanBeWrittenAndNothingIsInstalled) {
  AppFolderPlaces places = Installed();
  places.executableFolder = temp_.Path();
  EXPECT_EQ(FindAppFolder(places), temp_.Path("data/morvane"));
  places.shippedFolder = temp_.Path("no-share");
  EXPECT_EQ(FindAppFolder(places), temp_.Path());
}

TEST_F(AppFolderTest, IsFilledWithWritableCopiesAtFirstUse) {
  EXPECT_EQ(FindAppFolder(Installed()), temp_.Path("data/morvane"));
  EXPECT_EQ(temp_.Read("data/morvane/CD.mvne"), "Pagina=0\r\n");
  EXPECT_EQ(temp_.Read("data/morvane/morvane_fileid.txt"), "testo");
  struct stat info {};
  ASSERT_EQ(::stat(temp_.Path("data/morvane/CD.mvne").c_str(), &info), 0);
  EXPECT_NE(info.st_mode & S_IWUSR, 0U);
}

TEST_F(AppFolderTest, KeepsWhatTheUserChangedAndDeleted) {
  FindAppFolder(Installed());
  temp_.Write("data/morvane/CD.mvne", "mio");
  std::filesystem::remove(temp_.Path("data/morvane/morvane_fileid.txt"));
  EXPECT_EQ(FindAppFolder(Installed()), temp_.Path("data/morvane"));
  EXPECT_EQ(temp_.Read("data/morvane/CD.mvne"), "mio");
  EXPECT_FALSE(temp_.Has("data/morvane/morvane_fileid.txt"));
}

TEST_F(AppFolderTest, LiesInTheHomeFolderWithoutAUsableDataHome) {
  AppFolderPlaces places = Installed();
  for (const char* dataHome : {"", "relativo"}) {
    places.dataHome = dataHome;
    EXPECT_EQ(FindAppFolder(places), temp_.Path("home/.local/share/morvane"));
  }
}

TEST_F(AppFolderTest, FallsBackToTheExecutablesWhenNoneCanBeMade) {
  AppFolderPlaces places = Installed();
  temp_.Write("blocked", "");
  places.dataHome = temp_.Path("blocked");
  EXPECT_EQ(FindAppFolder(places), places.executableFolder);
  places.dataHome = "";
  places.home = "";
  EXPECT_EQ(FindAppFolder(places), places.executableFolder);
}

}  // namespace
}  // namespace Morvane
