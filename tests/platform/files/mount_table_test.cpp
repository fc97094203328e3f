#include "platform/files/mount_table.h"

#include "files_test.h"

namespace Morvane {
namespace {

const std::string kRoot = "27 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n";
const std::string kStick = "60 27 8:17 / /media/u/CHIAVE\\040USB rw - vfat /dev/sdb1 rw\n";
const std::string kDisc = "61 27 11:0 / /media/u/MUSICA ro - iso9660 /dev/sr0 ro\n";

class MountTableTest : public FilesTest {
 protected:
  // The volumes when these are mounted: letter, type, mount point and, in brackets, label.
  std::string Mounted(const std::string& mounts) {
    disk.Write("mountinfo", mounts);
    table.Refresh();
    std::string text;
    for (const Volume& volume : table.Volumes()) {
      EXPECT_EQ(table.Find(volume.letter), &volume);
      text += volume.letter + std::to_string(static_cast<int>(volume.type)) + volume.mountPoint + "[" +
              table.Label(volume) + "] ";
    }
    return text;
  }

  MountTable table{disk.Path("mountinfo"), disk.Path("by-label")};
};

TEST_F(MountTableTest, DiscsGetTheFirstLettersFloppiesTheirOwnAndTheSystemsMountsNone) {
  EXPECT_EQ(Mounted(""), "C3/[] ");
  EXPECT_EQ(table.Find('D'), nullptr);
  EXPECT_EQ(Mounted(kRoot + kStick +
                    "62 27 0:50 / /mnt/nas rw - cifs //nas/foto rw\n"
                    "63 27 2:1 / /media/floppy rw - vfat /dev/fd1 rw\n"
                    "64 27 8:33 / /dati rw shared:9 master:2 - ext4 /dev/sdc1 rw\n"
                    "65 27 0:51 /@archivio /archivio rw - btrfs /dev/sdd1 rw\n"
                    "66 27 0:52 / /vasca rw - zfs vasca rw\n"
                    "67 27 8:65 / /run/media/u/GITA rw - vfat /dev/sde1 rw\n"
                    "68 27 11:1 / /mnt/film ro - udf /dev/scd1 ro\n" +
                    kDisc),
            "B2/media/floppy[floppy] C3/[] D5/mnt/film[] E5/media/u/MUSICA[MUSICA] "
            "F3/media/u/CHIAVE USB[CHIAVE USB] G4/mnt/nas[] H3/dati[] I3/archivio[] J3/vasca[] "
            "K3/run/media/u/GITA[GITA] ");
  EXPECT_EQ(
      Mounted(kRoot + "1 27 0:21 / /proc rw - proc proc rw\n"
                      "2 27 0:22 / /sys rw - sysfs sysfs rw\n"
                      "3 27 0:24 / /dev/pts rw - devpts devpts rw\n"
                      "4 27 0:25 / /mnt/ram rw - tmpfs tmpfs rw\n"
                      "5 27 0:26 / /mnt/strati rw - overlay overlay rw\n"
                      "6 27 7:1 / /snap/core/1 ro - squashfs /dev/loop1 ro\n"
                      "7 27 7:2 / /mnt/immagine ro - squashfs /dev/loop2 ro\n"
                      "8 27 0:27 / /run/user/1000/doc rw - fuse.portal portal rw\n"
                      "9 27 8:81 / /home/u/.cache/doc rw - ext4 /dev/sdf1 rw\n"
                      "10 27 8:1 / /boot/efi rw - vfat /dev/sda1 rw\n"
                      "11 27 8:3 / /home rw - ext4 /dev/sda3 rw\n"
                      "12 27 8:49 /etc/hosts /mnt/hosts rw - ext4 /dev/sdd1 rw\n"
                      "13 27 8:2 / /mnt/specchio rw - ext4 /dev/sda2 rw\n"
                      "60 27 8:17 / /mnt rw - vfat /dev/sdb1 rw\n61 27 0:70 / /mnt rw - tmpfs tmpfs rw\n"
                      "not a line of the table\n14 27 8:5 / /mnt/x rw -\n\n"),
      "C3/[] ");
}

TEST_F(MountTableTest, ALetterStaysWhileItsVolumeIsMountedAndZIsTheLast) {
  EXPECT_EQ(Mounted(kRoot + kStick), "C3/[] D3/media/u/CHIAVE USB[CHIAVE USB] ");
  EXPECT_EQ(Mounted(kRoot + kStick + kDisc),
            "C3/[] D3/media/u/CHIAVE USB[CHIAVE USB] E5/media/u/MUSICA[MUSICA] ");
  EXPECT_EQ(Mounted(kRoot + kDisc), "C3/[] E5/media/u/MUSICA[MUSICA] ");
  EXPECT_EQ(Mounted(kRoot + "61 27 8:18 / /media/u/MUSICA rw - vfat /dev/sdb2 rw\n"),
            "C3/[] D3/media/u/MUSICA[MUSICA] ");
  std::string mounts = kRoot;
  for (int i = 0; i < 30; ++i) {
    const std::string n = std::to_string(i);
    mounts += "60 27 9:" + n + " / /media/u/d" + n + " rw - vfat /dev/sdx" + n + " rw\n";
  }
  Mounted(mounts);
  EXPECT_EQ(table.Volumes().size(), 24U);
  EXPECT_EQ(table.Volumes().back().letter, 'Z');
}

TEST_F(MountTableTest, ALabelComesFromTheDeviceWhereDevicesTellThem) {
  disk.MakeFolder("by-label");
  Link("../../sdb1", "by-label/FOTO\\x20MARE\\xe9\\x4");
  Link("../../sdb2", "by-label/ALTRA");
  Link("sdb2", "disco");
  EXPECT_EQ(Mounted(kRoot + kStick + kDisc + "62 27 8:18 / /media/u/X rw - vfat " + "/dev/../" +
                    disk.Path("disco") + " rw\n63 27 0:50 / /media/u/nas rw - cifs //nas/foto rw\n"),
            "C3/[] D5/media/u/MUSICA[] E3/media/u/CHIAVE USB[FOTO MAREé\\x4] F3/media/u/X[ALTRA] "
            "G4/media/u/nas[nas] ");
}

}  // namespace
}  // namespace Morvane
