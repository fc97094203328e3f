#include <regex>

#include "files_test.h"
#include "platform/files/mount_table.h"
#include "platform/files/name_order.h"
#include "platform/text.h"
#include "platform/windows_1252.h"
#include "tests/support/held_text.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

TEST_F(FilesTest, EachVolumeThatAUserWouldKnowHasALetterATypeAndALabel) {
  const std::map<DriveType, const char*> types = {{DriveType::Removable, " floppy "},
                                                  {DriveType::Fixed, " fixed "},
                                                  {DriveType::Remote, " remote "},
                                                  {DriveType::CdRom, " disc "}};
  MountTable table{{}, disk.Path("mountinfo"), disk.Path("by-label")};
  EXPECT_EQ(table.Find('D'), nullptr);
  fs::create_symlink("sdb2", disk.Path("disco"));
  ExpectCases("tests/platform/files/mounts.txt", [&](const std::string& given) {
    std::string mounts;
    std::istringstream lines(given);
    for (std::string line; std::getline(lines, line);) {
      std::istringstream words(line);
      std::string word, label, device;
      words >> word >> label >> device;
      if (word == "label") {
        fs::create_directory(disk.Path("by-label"));
        fs::create_symlink("../../" + device, disk.Path("by-label/" + label));
        continue;
      }
      line = std::regex_replace(line, std::regex("DISK"), disk.Path());
      const int times = line.find('*') == std::string::npos ? 1 : 25;
      for (int n = 1; n <= times; ++n)
        mounts += std::regex_replace(line, std::regex("\\*"), std::to_string(n)) + "\n";
    }
    disk.Write("mountinfo", mounts);
    table.Refresh();
    std::string text;
    for (const Volume& volume : table.Volumes()) {
      const std::string label = table.Label(volume);
      EXPECT_EQ(table.Find(volume.letter), &volume);
      text += (text.empty()             ? ""
               : volume.letter % 5 == 0 ? "\n"
                                        : ", ") +
              std::string(1, volume.letter) + types.at(volume.type) + volume.mountPoint +
              (label.empty() ? "" : " \"" + label + "\"");
    }
    return text;
  });
}

TEST_F(FilesTest, TheHomeIsTheFirstDriveAndTheWholeDiskTheLast) {
  const TestMachine anna({"/home//u/.", "anna"});
  const FileSystem& hers = *anna.Files;
  anna.Root.Write(
      "mountinfo",
      "27 1 8:2 / / rw - ext4 /dev/sda2 rw\n61 27 11:0 / /media/u/MUSICA ro - iso9660 /dev/sr0 ro\n"
      "28 27 8:3 / /home/u rw - ext4 /dev/sda3 rw\n"
      "29 28 8:4 / /home/u/archivio rw - ext4 /dev/sda4 rw\n");
  EXPECT_THAT(hers.DriveRoots(), ElementsAre("C:\\", "D:\\", "E:\\", "Z:\\"));
  EXPECT_EQ(
      hers.VolumeLabel("C:\\") + hers.VolumeLabel("Q:\\") + hers.VolumeLabel("Z:\\") + hers.DesktopFolder(),
      "annaC:\\Scrivania");
  EXPECT_TRUE(hers.TypeOfDrive("d:") == DriveType::CdRom && hers.TypeOfDrive("Q:") == DriveType::NoRoot);
  EXPECT_TRUE(hers.FolderExists("Z:\\home\\U\\scrivania") && !hers.FolderExists("C:\\home\\u"));
  std::string told;
  for (const char* native : {"/home/u", "/home/u/archivio/a", "/home/ugo", "/media/u/MUSICA/a", "/"})
    told += hers.FromNative(anna.Root.Path() + native) + " ";
  EXPECT_EQ(told, "C:\\ C:\\archivio\\a Z:\\home\\ugo D:\\a Z:\\ ");
  for (const char* const none : {"", "/", "utente"}) {
    const TestMachine homeless({none, "anna"});
    EXPECT_THAT(homeless.Files->DriveRoots(), ElementsAre("C:\\")) << none;
    EXPECT_EQ(homeless.Files->VolumeLabel("C:\\"), "") << none;
  }
}

TEST(Text, KeepsEachByteOfWindowsAndReadsBackUtf8AndKeepsBytesThatAreNone) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(ToWindows1252(FromWindows1252(bytes)), bytes);
  EXPECT_EQ(FromWindows1252("\x80 \x93perch\xE9\x94 \x81\x9F"), "€ “perché” \u0081Ÿ");
  EXPECT_EQ(ToWindows1252("a日b😀c\u0100\u0080"), "a?b?c??");
  for (const std::string good :
       {"\x7F", "\u0080", "\u07FF", "\u0800", "\uD7FF", "\uE000", "\uFFFF", "\U00010000", "\U0010FFFF"})
    EXPECT_TRUE(ToLower(good) == good && ReadableUtf8(good) == good) << good;
  // Cut short, overlong, surrogates, beyond the last character.
  for (const std::string bad :
       {"\xE9t\xC3", "\xC0\xAF", "\xC1\xBF", "\xE0\x80\xAF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
        "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82"}) {
    EXPECT_EQ(ToWindows1252(bad), bad);
    EXPECT_TRUE(ToLower(bad) == bad && ReadableUtf8(bad) == FromWindows1252(bad)) << bad;
  }
  EXPECT_EQ(ReadableUtf8("caff\xE9 perché \x80"), "caffé perché €");
}

TEST(NameOrder, IsWithoutRegardToCaseSmallLettersFirstAndOneForAnyTwoNames) {
  const std::vector<std::string> ordered = {"",      "a",   "A",  "a1",    "a10",  "a_",   "a_b", "ab",
                                            "aZ",    "aZb", "b",  "B",     "zeta", "Zeta", "è",   "È",
                                            "Étage", "été", "ωm", "Ωmega", "ж",    "Ж",    "日本"};
  std::vector<std::string> sorted(ordered.rbegin(), ordered.rend());
  SortNames(sorted);
  EXPECT_EQ(sorted, ordered);
  for (std::size_t i = 0; i < ordered.size(); ++i) {
    for (std::size_t j = 0; j < ordered.size(); ++j) EXPECT_EQ(NameIsBefore(ordered[i], ordered[j]), i < j);
  }
}

}  // namespace
}  // namespace Morvane
