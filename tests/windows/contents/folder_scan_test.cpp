#include "windows/contents/folder_scan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "platform/files/file_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Lines = std::vector<std::string>;

constexpr int kLimit = 2;

class FolderScan : public ::testing::Test {
 protected:
  FolderScan() {
    machine.Files->BeforeCall = [this](const std::string& call, const std::string& path) {
      if (call == "ReadFolder") ++readings[path];
      if (path == unreadable) throw FileError(ErrorNumber::PermissionDenied, path);
    };
  }

  void Write(const Lines& files) {
    for (const std::string& file : files) machine.WriteFile("C:\\R\\" + file, "");
  }
  // What is listed of C:\R, without that beginning.
  Lines Listed() const {
    Lines lines = List1.Kept();
    for (std::string& line : lines) line.erase(line.find("C:\\R\\"), 5);
    return lines;
  }
  void Scan(const std::string& folder = "C:\\R") {
    machine.Windows.Folders.push_back(folder);
    state.ElencoRighe = 0;
    Leggifile(state, machine.platform, List1);
  }
  Lines ScanLimited() {
    state.ElencoRighe = 0;
    machine.Windows.Boxes.clear();
    FindSubFolders("C:\\R", state, {*machine.Files, machine.TheScreen, machine.Windows}, List1, kLimit);
    return Listed();
  }

  TestMachine machine;
  AppState state;
  Listing List1;
  std::string unreadable = "none";
  std::map<std::string, int> readings;
};

TEST_F(FolderScan, ListsSubFoldersTwiceReadsThemOnceAndGivesTheChosenFolderNoHeading) {
  Write({"r", "A\\a", "A\\B\\b"});
  Scan("C:\\R\\");
  EXPECT_EQ(Listed(), (Lines{"(A)", "(A\\B)", "A\\B\\b", "A\\B\\b", "A\\a",  //
                             "(A\\B)", "A\\B\\b", "A\\B\\b", "A\\a", "r"}));
  for (const auto& [folder, times] : readings) EXPECT_EQ(times, 1) << folder;
  EXPECT_EQ(state.ElencoFontName, "Arial");
  EXPECT_EQ(state.ElencoFontSize, 8);
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
  state.ElencoColonne = 5;
  Scan("");
  EXPECT_EQ(List1.ListCount(), 10U) << "given up";
  EXPECT_EQ(state.ElencoColonne, 5);
  Scan();
  EXPECT_EQ(state.ElencoColonne, 2);
}

TEST_F(FolderScan, FolderOverTheLimitEndsTheFirstPassOfAllAboveIt) {
  Write({"A\\a", "A\\B\\1", "A\\B\\2", "r"});
  EXPECT_EQ(ScanLimited().size(), 14U) << "at the limit";
  EXPECT_TRUE(machine.Windows.Boxes.empty());
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
  Write({"A\\B\\3", "A\\B\\4", "Z\\z"});
  EXPECT_EQ(ScanLimited(), (Lines{"(A)", "(A\\B)", "A\\B\\1", "A\\B\\2", "A\\B\\3"}));
  ASSERT_EQ(machine.Windows.Boxes.size(), 1U);
  EXPECT_EQ(machine.Windows.Boxes[0].text,
            "Numero massimo di files/cartelle visualizzabili : 1000, il programma ignorerà i files in piu'");
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Hourglass);
  EXPECT_EQ(state.ElencoRighe, kLimit + 1);
  FindSubFolders("C:\\R", state, {*machine.Files, machine.TheScreen, machine.Windows}, List1, kLimit);
  EXPECT_EQ(List1.ListCount(), 5U) << "nothing is read while the count is above the limit";
  Write({"1", "2", "3"});
  std::filesystem::remove_all(machine.Files->ToNative("C:\\R\\A"));
  EXPECT_EQ(ScanLimited(), (Lines{"(Z)", "Z\\z", "Z\\z", "1", "2", "3"}));
}

TEST_F(FolderScan, FolderThatCannotBeReadIsNamedAndTheListStaysAsFarAsItGot) {
  Write({"A\\a", "B\\b", "r"});
  unreadable = "C:\\R\\B";
  try {
    Scan();
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.what(), HasSubstr("C:\\R\\B"));
  }
  EXPECT_EQ(Listed(), (Lines{"(A)", "A\\a", "(B)"}));
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
  EXPECT_THROW(Scan("C:\\Manca"), RuntimeError);
  EXPECT_EQ(List1.ListCount(), 3U);
}

TEST_F(FolderScan, LinkToAFolderAboveIsListedAndNotEntered) {
  namespace fs = std::filesystem;
  Write({"A\\a"});
  const fs::path folder = machine.Files->ToNative("C:\\R");
  fs::create_directory_symlink(folder, folder / "A/su");
  fs::create_directory_symlink(folder / "A", folder / "Z");
  fs::create_directory_symlink(".", folder / "A/qui");
  Scan();
  const Lines a = {"(A\\qui)", "(A\\su)", "A\\a"};
  const Lines z = {"(Z\\qui)", "(Z\\su)", "Z\\a"};
  Lines all = {"(A)"};
  for (const Lines& lines : {a, {"(Z)"}, z, a, z}) all.insert(all.end(), lines.begin(), lines.end());
  EXPECT_EQ(Listed(), all);
}

TEST_F(FolderScan, FoldersInEachOtherAreCountedExactlyAndOnlySoManyLinesAreKept) {
  for (const auto& [depth, count] : {std::pair(39, 3 * (LineCount{1} << 39) - 2), {199, kMostLines}}) {
    std::string path = "C:\\R";
    for (int i = 0; i < depth; ++i, path += "\\d") machine.WriteFile(path + "\\f", "");
    machine.WriteFile(path + "\\f", "");
    Scan();
    EXPECT_EQ(List1.ListCount(), count);
    EXPECT_EQ(List1.Kept().size(), kKeptLines);
    EXPECT_EQ(Listed()[1], "(d\\d)");
  }
}

}  // namespace
}  // namespace Morvane
