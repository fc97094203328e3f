#include <sys/mount.h>
#include <sys/stat.h>

#include "temp_machine.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class MovingTest : public FilesTest {
 protected:
  MovingTest() {
    temp_.Write("root/d/a.jpg", "a");
    temp_.Write("root/d/b.jpg", "b");
  }
};

TEST_F(MovingTest, KillsFilesAndRefusesReadOnlyOnesAndFolders) {
  temp_.MakeFolder("root/d/cartella");
  temp_.Write("root/d/sola.jpg", "");
  ::chmod(temp_.Path("root/d/sola.jpg").c_str(), 0444);
  fs::create_symlink("assente", temp_.Path("root/d/rotto"));
  FileSystem files = Machine();
  files.Kill("C:\\D\\A.JPG");
  files.Kill("C:\\d\\rotto");
  EXPECT_EQ(NumberOfErrorIn([&] { files.Kill("C:\\d\\a.jpg"); }), ErrorNumber::FileNotFound);
  EXPECT_EQ(NumberOfErrorIn([&] { files.Kill("C:\\d\\sola.jpg"); }), ErrorNumber::PathFileAccess);
  EXPECT_EQ(NumberOfErrorIn([&] { files.Kill("C:\\d\\cartella"); }), ErrorNumber::PathFileAccess);
  EXPECT_THAT(files.PlainFiles("C:\\d"), ElementsAre("b.jpg", "sola.jpg"));
}

TEST_F(MovingTest, RenamesAndMovesAsTyped) {
  temp_.MakeFolder("root/altra");
  FileSystem files = Machine();
  files.Name("C:\\d\\A.jpg", "C:\\d\\Caffè?.jpg");
  files.Name("C:\\d\\b.jpg", "C:\\d\\..\\ALTRA\\b2.jpg");
  EXPECT_EQ(temp_.Read("root/d/Caffè?.jpg"), "a");
  EXPECT_EQ(temp_.Read("root/altra/b2.jpg"), "b");
}

TEST_F(MovingTest, TakesAChangeOfCaseAndNoChangeQuietly) {
  FileSystem files = Machine();
  files.Name("C:\\d\\a.jpg", "C:\\d\\a.jpg");
  files.Name("C:\\d\\a.jpg", "C:\\d\\A.JPG");
  EXPECT_THAT(files.PlainFiles("C:\\d"), ElementsAre("A.JPG", "b.jpg"));
}

TEST_F(MovingTest, NeverReplacesWhatIsThere) {
  FileSystem files = Machine();
  EXPECT_EQ(NumberOfErrorIn([&] { files.Name("C:\\d\\a.jpg", "C:\\d\\B.JPG"); }),
            ErrorNumber::FileAlreadyExists);
  EXPECT_EQ(NumberOfErrorIn([&] { files.Name("C:\\d\\a.jpg", "C:\\D"); }), ErrorNumber::FileAlreadyExists);
  EXPECT_EQ(temp_.Read("root/d/b.jpg"), "b");
}

TEST_F(MovingTest, RefusesBadNamesAndMissingPlaces) {
  FileSystem files = Machine();
  for (const char* name : {"", "x/y", "../../x", "D:\\x.jpg\\", "D:"}) {
    EXPECT_EQ(NumberOfErrorIn([&] { files.Name("C:\\d\\a.jpg", "C:\\d\\" + std::string(name)); }),
              ErrorNumber::BadFileName)
        << name;
  }
  EXPECT_EQ(NumberOfErrorIn([&] { files.Name("C:\\d\\a.jpg", "C:\\d\\D:\\x.jpg"); }),
            ErrorNumber::PathNotFound);
  EXPECT_EQ(NumberOfErrorIn([&] { files.Name("C:\\d\\c.jpg", "C:\\d\\x.jpg"); }), ErrorNumber::FileNotFound);
  EXPECT_EQ(temp_.Read("root/d/a.jpg"), "a");
}

TEST_F(MovingTest, CopiesToAnotherVolumeWithoutReplacing) {
  temp_.MakeFolder("root/volume");
  const std::string mountPoint = temp_.Path("root/volume");
  if (::mount("none", mountPoint.c_str(), "tmpfs", 0, "size=64k") != 0)
    GTEST_SKIP() << "mounting is not permitted";
  temp_.Write("root/volume/b.jpg", "altro");
  temp_.Write("root/d/grande.jpg", std::string(200000, 'g'));
  FileSystem files = Machine();
  files.Name("C:\\d\\a.jpg", "C:\\volume\\a.jpg");
  const std::string moved = temp_.Read("root/volume/a.jpg");
  const ErrorNumber taken = NumberOfErrorIn([&] { files.Name("C:\\d\\b.jpg", "C:\\volume\\b.jpg"); });
  const ErrorNumber full =
      NumberOfErrorIn([&] { files.Name("C:\\d\\grande.jpg", "C:\\volume\\grande.jpg"); });
  const auto names = files.ReadFolder("C:\\volume").files;
  ::umount(mountPoint.c_str());

  EXPECT_EQ(moved, "a");
  EXPECT_FALSE(temp_.Has("root/d/a.jpg"));
  EXPECT_EQ(taken, ErrorNumber::FileAlreadyExists);
  EXPECT_EQ(full, ErrorNumber::DiskFull);
  EXPECT_THAT(names, ElementsAre("a.jpg", "b.jpg"));
  EXPECT_EQ(temp_.Read("root/d/grande.jpg").size(), 200000U);
}

}  // namespace
}  // namespace Morvane
