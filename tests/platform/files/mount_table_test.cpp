#include "platform/files/mount_table.h"

#include <sstream>

#include "files_test.h"
#include "tests/support/held_text.h"

namespace Morvane {
namespace {

TEST_F(FilesTest, EachVolumeThatAUserWouldKnowHasALetterATypeAndALabel) {
  MountTable table{{}, disk.Path("mountinfo"), disk.Path("by-label")};
  EXPECT_EQ(table.Find('D'), nullptr);
  Link("sdb2", "disco");
  ExpectCases("tests/platform/files/mounts.txt", [&](const std::string& given) {
    std::string mounts;
    std::istringstream lines(given);
    for (std::string line; std::getline(lines, line);) {
      std::istringstream words(line);
      std::string word, label, device;
      if (words >> word >> label >> device; word == "label") {
        disk.MakeFolder("by-label");
        Link("../../" + device, "by-label/" + label);
      } else {
        const std::size_t at = line.find("DISK");
        mounts += (at == std::string::npos ? line : line.replace(at, 4, disk.Path())) + "\n";
      }
    }
    disk.Write("mountinfo", mounts);
    table.Refresh();
    std::string text;
    for (const Volume& volume : table.Volumes()) {
      const std::map<DriveType, const char*> types = {{DriveType::Removable, "floppy"},
                                                      {DriveType::Fixed, "fixed"},
                                                      {DriveType::Remote, "remote"},
                                                      {DriveType::CdRom, "disc"}};
      EXPECT_EQ(table.Find(volume.letter), &volume);
      text += (text.empty() ? "" : "\n") + std::string(1, volume.letter) + " " + types.at(volume.type) + " " +
              volume.mountPoint + " \"" + table.Label(volume) + "\"";
    }
    return text;
  });
}

}  // namespace
}  // namespace Morvane
