#include "platform/files/app_folder.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

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
  EXPECT_EQ(FindAppFolder(places).path, temp_.Path("data/morvane"));
  places.shippedFolder = temp_.Path("no-share");
  EXPECT_EQ(FindAppFolder(places).path, temp_.Path());
}

TEST_F(AppFolderTest, IsFilledWithWritableCopiesAtFirstUse) {
  EXPECT_EQ(FindAppFolder(Installed()).path, temp_.Path("data/morvane"));
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
  EXPECT_EQ(FindAppFolder(Installed()).path, temp_.Path("data/morvane"));
  EXPECT_EQ(temp_.Read("data/morvane/CD.mvne"), "mio");
  EXPECT_FALSE(temp_.Has("data/morvane/morvane_fileid.txt"));
}

TEST_F(AppFolderTest, LiesInTheHomeFolderWithoutAUsableDataHome) {
  AppFolderPlaces places = Installed();
  for (const char* dataHome : {"", "relativo"}) {
    places.dataHome = dataHome;
    EXPECT_EQ(FindAppFolder(places).path, temp_.Path("home/.local/share/morvane"));
  }
}

TEST_F(AppFolderTest, TheShippedFilesServeWhenNoneCanBeMade) {
  AppFolderPlaces places = Installed();
  temp_.Write("blocked", "");
  places.dataHome = temp_.Path("blocked");
  EXPECT_EQ(FindAppFolder(places).path, places.shippedFolder);
  EXPECT_NE(FindAppFolder(places).problem, "");
  places.dataHome = "";
  places.home = "";
  EXPECT_EQ(FindAppFolder(places).path, places.shippedFolder);
}

// A disk that takes small files only, as a full one does.
TEST_F(AppFolderTest, AppearsWholeOrNotAtAllAndTheNextStartTriesAgain) {
  temp_.Write("share/Grande.mvne", std::string(100'000, ';'));
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit small{4096, before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  const AppFolder full = FindAppFolder(Installed());
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(full.path, temp_.Path("share"));
  EXPECT_EQ(full.problem, "Disco pieno: " + temp_.Path("data/morvane"));
  EXPECT_TRUE(std::filesystem::is_empty(temp_.Path("data")));
  EXPECT_EQ(FindAppFolder(Installed()).path, temp_.Path("data/morvane"));
  EXPECT_TRUE(temp_.Has("data/morvane/Grande.mvne"));
}

}  // namespace
}  // namespace Morvane
