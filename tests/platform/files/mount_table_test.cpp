#include "platform/files/mount_table.h"

#include "platform/files/mount_info.h"
#include "temp_machine.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;

constexpr const char* kRootLine = "27 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n";
constexpr const char* kStickLine = "60 27 8:17 / /media/u/CHIAVE\\040USB rw - vfat /dev/sdb1 rw\n";
constexpr const char* kDiscLine = "61 27 11:0 / /media/u/MUSICA ro - iso9660 /dev/sr0 ro\n";

class MountTableTest : public FilesTest {
 protected:
  MountTable Table(const std::string& mountInfo) const {
    temp_.Write("mountinfo", mountInfo);
    return MountTable(temp_.Path("mountinfo"), temp_.Path("by-label"));
  }
};

std::string Describe(const MountTable& table) {
  std::string text;
  for (const Volume& volume : table.Volumes()) {
    text += std::string(1, volume.letter) + std::to_string(static_cast<int>(volume.type)) +
            volume.mountPoint + " ";
  }
  return text;
}

TEST_F(MountTableTest, GivesDiscsTheFirstLetterAndFloppiesTheirOwn) {
  const std::string share = "62 27 0:50 / /mnt/nas rw - cifs //nas/foto rw\n";
  const std::string floppy = "63 27 2:0 / /media/floppy rw - vfat /dev/fd0 rw\n";
  const std::string disk = "64 27 8:33 / /dati rw shared:9 master:2 - ext4 /dev/sdc1 rw\n";
  const std::string subvolume = "65 27 0:51 /@archivio /archivio rw - btrfs /dev/sdd1 rw\n";
  EXPECT_EQ(
      Describe(Table(kRootLine + std::string(kStickLine) + share + floppy + disk + subvolume + kDiscLine)),
      "A2/media/floppy C3/ D5/media/u/MUSICA E3/media/u/CHIAVE USB F4/mnt/nas G3/dati H3/archivio ");
}

TEST_F(MountTableTest, LeavesOutWhatNoUserKnowsAsAVolume) {
  EXPECT_EQ(
      Describe(Table(std::string(kRootLine) + "1 27 0:21 / /proc rw - proc proc rw\n"
                                              "2 27 0:22 / /sys rw - sysfs sysfs rw\n"
                                              "3 27 0:24 / /dev/pts rw - devpts devpts rw\n"
                                              "4 27 0:25 / /mnt/ram rw - tmpfs tmpfs rw\n"
                                              "5 27 0:26 / /mnt/strati rw - overlay overlay rw\n"
                                              "6 27 7:1 / /snap/core/1 ro - squashfs /dev/loop1 ro\n"
                                              "7 27 7:2 / /mnt/immagine ro - squashfs /dev/loop2 ro\n"
                                              "8 27 0:27 / /run/user/1000/doc rw - fuse.portal portal rw\n"
                                              "9 27 0:28 / /home/u/.cache/doc rw - fuse.portal portal rw\n"
                                              "10 27 8:1 / /boot/efi rw - vfat /dev/sda1 rw\n"
                                              "11 27 8:3 / /home rw - ext4 /dev/sda3 rw\n"
                                              "12 27 8:49 /etc/hosts /mnt/hosts rw - ext4 /dev/sdd1 rw\n"
                                              "13 27 8:2 / /mnt/specchio rw - ext4 /dev/sda2 rw\n"
                                              "not a line of the table\n14 27 8:5 / /mnt/x rw -\n\n")),
      "C3/ ");
}

TEST_F(MountTableTest, HasTheMainDriveWhenNothingCanBeRead) {
  EXPECT_EQ(Describe(MountTable(temp_.Path("missing"), temp_.Path("missing"))), "C3/ ");
}

TEST_F(MountTableTest, ShowsOnlyTheUpperOfTwoMountsOnOnePoint) {
  EXPECT_EQ(Describe(Table(std::string(kRootLine) + "60 27 8:17 / /mnt rw - vfat /dev/sdb1 rw\n"
                                                    "61 27 0:70 / /mnt rw - tmpfs tmpfs rw\n")),
            "C3/ ");
}

TEST_F(MountTableTest, KeepsALetterWhileItsVolumeIsMounted) {
  MountTable table = Table(std::string(kRootLine) + kStickLine);
  EXPECT_EQ(table.Find('D')->mountPoint, "/media/u/CHIAVE USB");

  temp_.Write("mountinfo", std::string(kRootLine) + kStickLine + kDiscLine);
  table.Refresh();
  EXPECT_EQ(table.Find('D')->mountPoint, "/media/u/CHIAVE USB");
  EXPECT_EQ(table.Find('E')->mountPoint, "/media/u/MUSICA");

  temp_.Write("mountinfo", std::string(kRootLine) + kDiscLine);
  table.Refresh();
  EXPECT_EQ(table.Find('D'), nullptr);
  EXPECT_EQ(table.Find('E')->mountPoint, "/media/u/MUSICA");
}

TEST_F(MountTableTest, EndsAtTheLastLetter) {
  std::string mounts = kRootLine;
  for (int i = 0; i < 30; ++i) {
    const std::string n = std::to_string(i);
    mounts += "60 27 9:" + n + " / /media/u/d" + n + " rw - vfat /dev/sdx" + n + " rw\n";
  }
  const MountTable table = Table(mounts);
  EXPECT_EQ(table.Volumes().size(), 24U);
  EXPECT_EQ(table.Volumes().back().letter, 'Z');
}

TEST_F(MountTableTest, ALabelComesFromTheDeviceAndFromTheDesktopWhereDevicesTellNone) {
  const std::string mounts = std::string(kRootLine) + kStickLine + kDiscLine;
  EXPECT_EQ(Table(mounts).Label(*Table(mounts).Find('D')), "MUSICA");
  temp_.MakeFolder("by-label");
  std::filesystem::create_symlink("../../sdb1", temp_.Path("by-label/FOTO\\x20MARE"));
  std::filesystem::create_symlink("../../sdb2", temp_.Path("by-label/ALTRA"));
  const MountTable table = Table(mounts);
  EXPECT_EQ(table.Label(*table.Find('C')), "");
  EXPECT_EQ(table.Label(*table.Find('D')), "");
  EXPECT_EQ(table.Label(*table.Find('E')), "FOTO MARE");
}

}  // namespace
}  // namespace Morvane
