#include "platform/files/path_mapping.h"

#include <sys/stat.h>

#include "temp_machine.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;

constexpr const char* kMounts =
    "27 1 8:2 / / rw - ext4 /dev/sda2 rw\n"
    "61 27 11:0 / /media/u/MUSICA ro - iso9660 /dev/sr0 ro\n";

class PathMappingTest : public FilesTest {
 protected:
  std::string Root(const std::string& path) const { return temp_.Path("root" + path); }
};

TEST_F(PathMappingTest, MapsDrivesBothWays) {
  temp_.Write("root/media/u/MUSICA/Brani/uno.mp3", "");
  const FileSystem files = Machine(kMounts);
  EXPECT_THAT(files.DriveRoots(), ElementsAre("C:\\", "D:\\"));
  EXPECT_EQ(files.TypeOfDrive("D:"), DriveType::CdRom);
  EXPECT_EQ(files.TypeOfDrive("Q:"), DriveType::NoRoot);
  EXPECT_EQ(files.VolumeLabel("D:\\"), "MUSICA");
  EXPECT_EQ(files.DesktopFolder(), "C:\\home\\u\\Scrivania");

  EXPECT_EQ(files.ToNative("d:\\BRANI\\Uno.mp3"), Root("/media/u/MUSICA/Brani/uno.mp3"));
  EXPECT_EQ(files.FromNative(Root("/media/u/MUSICA/Brani/uno.mp3")), "D:\\Brani\\uno.mp3");
  EXPECT_EQ(files.FromNative(Root("/media/u/MUSICA/")), "D:\\");
  EXPECT_EQ(files.FromNative(Root("/media/u/MUSICA2")), "C:\\media\\u\\MUSICA2");
  EXPECT_EQ(files.FromNative(Root("/home/../media/./u")), "C:\\media\\u");
  EXPECT_EQ(files.FromNative(Root("/un\\nome")), "");
  EXPECT_EQ(files.FromNative("/altrove"), "");
  EXPECT_EQ(files.FromNative("relativo"), "");
}

TEST_F(PathMappingTest, ServesTheRealRoot) {
  const FileSystem files("/", MountTable("", ""), "/");
  EXPECT_EQ(files.ToNative("C:\\"), "/");
  EXPECT_EQ(files.ToNative("\\"), "/");
  EXPECT_EQ(files.FromNative("/"), "C:\\");
  EXPECT_TRUE(files.FolderExists("C:\\"));
  const std::string temp = temp_.Path("nuovo.txt");
  EXPECT_EQ(files.ToNative(files.FromNative(temp)), temp);
}

TEST_F(PathMappingTest, TakesTheExactNameElseTheFirstEqualWithoutCase) {
  temp_.Write("root/dati/foto.txt", "minuscolo");
  temp_.Write("root/dati/FOTO.txt", "maiuscolo");
  temp_.Write("root/dati/NOTE.txt", "maiuscolo");
  temp_.Write("root/dati/Note.txt", "iniziale");
  temp_.Write("root/DATI/Altro.txt", "altro");
  const FileSystem files = Machine();
  EXPECT_EQ(files.ReadBytes("C:\\dati\\foto.txt"), "minuscolo");
  EXPECT_EQ(files.ReadBytes("C:\\dati\\FOTO.txt"), "maiuscolo");
  EXPECT_EQ(files.ReadBytes("C:\\dati\\Foto.TXT"), "minuscolo");
  EXPECT_EQ(files.ReadBytes("C:\\dati\\nOTE.TXT"), "iniziale");
  EXPECT_EQ(files.ReadBytes("C:\\DATI\\altro.txt"), "altro");
  EXPECT_EQ(files.ReadBytes("C:\\Dati\\FOTO.TXT"), "minuscolo");
  temp_.Write("root/è/Caffè.txt", "accenti");
  EXPECT_EQ(files.ReadBytes("C:\\È\\CAFFÈ.TXT"), "accenti");
}

TEST_F(PathMappingTest, ReadsPathsInEachFormThatCallersWrite) {
  temp_.Write("root/dati/a.txt", "a");
  const FileSystem files = Machine();
  for (const char* path : {"C:\\dati\\a.txt", "c:\\\\dati\\\\a.txt", "\\dati\\a.txt", "dati\\a.txt",
                           "C:dati\\a.txt", "C:\\dati\\.\\x\\..\\a.txt", "C:\\..\\..\\dati\\a.txt"}) {
    EXPECT_TRUE(files.FileExists(path)) << path;
  }
  EXPECT_TRUE(files.FolderExists("C:\\dati\\"));
  EXPECT_TRUE(files.FolderExists("\\"));
  EXPECT_FALSE(files.FileExists("C:\\dati/a.txt"));
  EXPECT_FALSE(files.FileExists("Q:\\dati\\a.txt"));
  EXPECT_FALSE(files.FileExists(std::string("C:\\dati\\a.txt\0x", 16)));
}

TEST_F(PathMappingTest, NeverLeavesADriveThroughItsParents) {
  temp_.Write("fuori.txt", "");
  const FileSystem files = Machine(kMounts);
  EXPECT_FALSE(files.FileExists("C:\\..\\fuori.txt"));
  EXPECT_EQ(files.ToNative("C:\\..\\..\\x"), Root("/x"));
  EXPECT_EQ(files.ToNative("D:\\..\\x"), Root("/media/u/MUSICA/x"));
  EXPECT_EQ(NumberOfErrorIn([&] { files.ToNative("C:\\../fuori.txt"); }), ErrorNumber::BadFileName);
}

TEST_F(PathMappingTest, ShowsAndOpensNamesThatAreNoUtf8) {
  temp_.Write("root/vecchi/caff\xE9.jpg", "1252");
  temp_.Write("root/vecchi/un\\nome.jpg", "");
  const FileSystem files = Machine();
  EXPECT_THAT(files.PlainFiles("C:\\vecchi"), ElementsAre("caffé.jpg"));
  EXPECT_EQ(files.ReadBytes("C:\\vecchi\\caffé.jpg"), "1252");
  EXPECT_EQ(files.ReadBytes("C:\\Vecchi\\CAFFÉ.JPG"), "1252");
  EXPECT_EQ(files.FromNative(Root("/vecchi/caff\xE9.jpg")), "C:\\vecchi\\caffé.jpg");
}

TEST_F(PathMappingTest, TellsAMissingFileFromAMissingFolder) {
  temp_.Write("root/dati/a.txt", "");
  const FileSystem files = Machine();
  EXPECT_EQ(NumberOfErrorIn([&] { files.ReadBytes("C:\\dati\\b.txt"); }), ErrorNumber::FileNotFound);
  EXPECT_EQ(NumberOfErrorIn([&] { files.ReadBytes("C:\\manca\\b.txt"); }), ErrorNumber::PathNotFound);
  EXPECT_EQ(NumberOfErrorIn([&] { files.ReadBytes("C:\\dati\\a.txt\\b.txt"); }), ErrorNumber::PathNotFound);
  EXPECT_EQ(NumberOfErrorIn([&] { files.ReadBytes("Q:\\b.txt"); }), ErrorNumber::PathNotFound);
}

TEST_F(PathMappingTest, SeesADriveThatIsMountedWhileTheProgramRuns) {
  temp_.Write("root/media/u/MUSICA/a.txt", "disco");
  const FileSystem files = Machine("");
  EXPECT_FALSE(files.FileExists("D:\\a.txt"));
  temp_.Write("mountinfo", kMounts);
  EXPECT_EQ(files.ReadBytes("D:\\a.txt"), "disco");
}

}  // namespace
}  // namespace Morvane
