#include "files_test.h"
#include "platform/windows_1252.h"
#include "tests/support/held_text.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;

constexpr const char* kMounts =
    "27 1 8:2 / / rw - ext4 /dev/sda2 rw\n"
    "61 27 11:0 / /media/u/MUSICA ro - iso9660 /dev/sr0 ro\n";

TEST_F(FilesTest, DrivesAreMappedBothWaysAsSoonAsTheyAreMounted) {
  disk.Write("media/u/MUSICA/Brani/uno.mp3", "disco");
  EXPECT_FALSE(files.FileExists("D:\\Brani\\uno.mp3"));
  disk.Write("mountinfo", kMounts);
  EXPECT_EQ(files.ReadBytes("D:\\Brani\\uno.mp3"), "disco");
  EXPECT_THAT(files.DriveRoots(), ElementsAre("C:\\", "D:\\"));
  EXPECT_EQ(files.TypeOfDrive("d:"), DriveType::CdRom);
  EXPECT_EQ(files.TypeOfDrive("Q:"), DriveType::NoRoot);
  EXPECT_EQ(files.VolumeLabel("D:\\") + files.VolumeLabel("Q:\\"), "MUSICA");
  EXPECT_EQ(files.DesktopFolder(), "C:\\home\\u\\Scrivania");
  EXPECT_EQ(files.FromNative("/altrove") + files.FromNative("relativo"), "");
  EXPECT_EQ(files.FromNative(disk.Path("vecchi/caff\xE9.jpg")), "C:\\vecchi\\caffé.jpg");
}

TEST_F(FilesTest, TheHomeIsTheFirstDriveAndTheWholeDiskTheLast) {
  const TestMachine anna({"/home/u/", "anna"});
  const FileSystem& hers = *anna.Files;
  anna.Root.Write("mountinfo",
                  "27 1 8:2 / / rw - ext4 /dev/sda2 rw\n"
                  "28 27 8:3 / /home/u rw - ext4 /dev/sda3 rw\n"
                  "29 28 8:4 / /home/u/archivio rw - ext4 /dev/sda4 rw\n"
                  "61 27 11:0 / /media/u/MUSICA ro - iso9660 /dev/sr0 ro\n");
  EXPECT_THAT(hers.DriveRoots(), ElementsAre("C:\\", "D:\\", "E:\\", "Z:\\"));
  EXPECT_EQ(hers.VolumeLabel("C:\\") + hers.VolumeLabel("Z:\\"), "anna");
  EXPECT_EQ(hers.DesktopFolder(), "C:\\Scrivania");
  EXPECT_TRUE(hers.FolderExists("Z:\\home\\U\\scrivania"));
  EXPECT_FALSE(hers.FolderExists("C:\\home\\u"));
  const std::pair<const char*, const char*> told[] = {{"/home/u", "C:\\"},
                                                      {"/home/u/archivio/a", "C:\\archivio\\a"},
                                                      {"/home/ugo", "Z:\\home\\ugo"},
                                                      {"/media/u/MUSICA/a", "D:\\a"},
                                                      {"/", "Z:\\"}};
  for (const auto& [native, path] : told) EXPECT_EQ(hers.FromNative(anna.Root.Path() + native), path);
  for (const char* const none : {"", "/", "utente"}) {
    EXPECT_THAT(TestMachine({none, "anna"}).Files->DriveRoots(), ElementsAre("C:\\")) << none;
    EXPECT_EQ(TestMachine({none, "anna"}).Files->VolumeLabel("C:\\"), "") << none;
  }
}

TEST_F(FilesTest, TheRealRootIsServed) {
  const FileSystem real("/", MountTable({}, "", ""), "/");
  EXPECT_EQ(real.ToNative("C:\\") + real.ToNative("\\") + real.FromNative("/"), "//C:\\");
  EXPECT_TRUE(real.FolderExists("C:\\"));
  const std::string temp = disk.Path("nuovo.txt");
  EXPECT_EQ(real.ToNative(real.FromNative(temp)), temp);
}

TEST_F(FilesTest, APathLeadsToTheExactNameElseToTheFirstEqualWithoutCase) {
  for (const char* name : {"dati/foto.txt", "dati/FOTO.txt", "dati/NOTE.txt", "dati/Note.txt",
                           "DATI/Altro.txt", "è/Caffè.txt", "vecchi/caff\xE9.jpg", "foto", "FOTO/mare.jpg",
                           "nuovi/per\xF2.jpg", "nuovi/PER\xD2.jpg", "media/u/MUSICA/Brani/uno.mp3"}) {
    disk.Write(name, name);
  }
  disk.Write("mountinfo", kMounts);
  ExpectCases("tests/platform/files/paths.txt", [&](std::string given) -> std::string {
    given.pop_back();
    if (given.starts_with("= ")) {
      const std::string path = files.FromNative(disk.Path() + given.substr(2));
      return path.empty() ? "-" : path;
    }
    if (files.FolderExists(given)) return "folder " + files.ToNative(given).substr(disk.Path().size());
    if (!files.FileExists(given)) return "nothing";
    const std::string name = files.ReadBytes(given);
    EXPECT_EQ(files.ToNative(given), disk.Path(name));
    return ReadableUtf8(name);
  });
  EXPECT_FALSE(files.FileExists(std::string("C:\\dati\\foto.txt\0x", 19)));
}

}  // namespace
}  // namespace Morvane
