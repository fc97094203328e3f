#include <sys/stat.h>

#include "files_test.h"

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
  EXPECT_EQ(files.ToNative("d:\\BRANI\\Uno.mp3"), disk.Path("media/u/MUSICA/Brani/uno.mp3"));
  const std::pair<std::string, const char*> natives[] = {
      {disk.Path("media/u/MUSICA/Brani/uno.mp3"), "D:\\Brani\\uno.mp3"},
      {disk.Path("media/u/MUSICA/"), "D:\\"},
      {disk.Path("media/u/MUSICA2"), "C:\\media\\u\\MUSICA2"},
      {disk.Path("home/../media/./u"), "C:\\media\\u"},
      {disk.Path("vecchi/caff\xE9.jpg"), "C:\\vecchi\\caffé.jpg"},
      {disk.Path(""), "C:\\"},
      {disk.Path() + "2/a", ""},
      {disk.Path("un\\nome"), ""},
      {"/altrove", ""},
      {"relativo", ""}};
  for (const auto& [native, path] : natives) EXPECT_EQ(files.FromNative(native), path) << native;
}

TEST_F(FilesTest, TheRealRootIsServed) {
  const FileSystem real("/", MountTable("", ""), "/");
  EXPECT_EQ(real.ToNative("C:\\") + real.ToNative("\\") + real.FromNative("/"), "//C:\\");
  EXPECT_TRUE(real.FolderExists("C:\\"));
  const std::string temp = disk.Path("nuovo.txt");
  EXPECT_EQ(real.ToNative(real.FromNative(temp)), temp);
}

TEST_F(FilesTest, APathLeadsToTheExactNameElseToTheFirstEqualWithoutCase) {
  for (const char* name :
       {"dati/foto.txt", "dati/FOTO.txt", "dati/NOTE.txt", "dati/Note.txt", "DATI/Altro.txt", "è/Caffè.txt",
        "vecchi/caff\xE9.jpg", "nuovi/per\xF2.jpg", "nuovi/PER\xD2.jpg"}) {
    disk.Write(name, name);
  }
  for (const std::string paths :
       {"C:\\dati\\foto.txt > dati/foto.txt", "C:\\dati\\FOTO.txt > dati/FOTO.txt",
        "C:\\dati\\Foto.TXT > dati/foto.txt", "C:\\dati\\nOTE.TXT > dati/Note.txt",
        "C:\\DATI\\altro.txt > DATI/Altro.txt", "C:\\Dati\\FOTO.TXT > dati/foto.txt",
        "C:\\È\\CAFFÈ.TXT > è/Caffè.txt", "C:\\vecchi\\caffé.jpg > vecchi/caff\xE9.jpg",
        "C:\\Vecchi\\CAFFÉ.JPG > vecchi/caff\xE9.jpg", "C:\\nuovi\\però.jpg > nuovi/per\xF2.jpg",
        "c:\\\\dati\\\\foto.txt > dati/foto.txt", "\\dati\\foto.txt > dati/foto.txt",
        "dati\\foto.txt > dati/foto.txt", "C:dati\\foto.txt > dati/foto.txt",
        "C:\\dati\\.\\x\\..\\foto.txt > dati/foto.txt", "C:\\..\\..\\dati\\foto.txt > dati/foto.txt"}) {
    const std::string path = paths.substr(0, paths.find(" > "));
    const std::string name = paths.substr(paths.find(" > ") + 3);
    EXPECT_EQ(files.ReadBytes(path), name) << path;
    EXPECT_EQ(files.ToNative(path), disk.Path(name));
  }
  for (const char* folder : {"C:\\dati\\", "\\", "", "C:", "d:\\..\\..\\x"}) {
    EXPECT_EQ(files.FolderExists(folder), folder[0] != 'd') << folder;
  }
  for (const std::string& path : {std::string("C:\\dati/foto.txt"), std::string("Q:\\dati\\foto.txt"),
                                  std::string("C:\\dati\\foto.txt\0x", 19)}) {
    EXPECT_FALSE(files.FileExists(path)) << path;
  }
}

}  // namespace
}  // namespace Morvane
