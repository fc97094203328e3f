#include "windows/contents/folder_scan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <random>
#include <set>

#include "platform/files/file_error.h"
#include "platform/files/file_system.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// A disc that exists in memory only; a folder without an entry can't be read.
class TreeFiles : public FileSystem {
 public:
  TreeFiles() : FileSystem("/", MountTable{}, "/") {}

  std::map<std::string, FolderEntries> tree;
  mutable std::map<std::string, int> readings;

  FolderEntries ReadFolder(const std::string& folder) const override {
    ++readings[folder];
    const auto found = tree.find(folder);
    if (found == tree.end()) throw FileError(ErrorNumber::PermissionDenied, folder);
    return found->second;
  }
  std::string FolderIdentity(const std::string& folder) const override { return folder; }
};

// The scan as its rule reads, with every line kept and every folder read anew at each step.
struct PlainScan {
  const std::map<std::string, FolderEntries>& tree;
  int limit;
  int righe = 0;
  int messages = 0;
  bool hourglass = true;
  std::vector<std::string> lines = {};

  void FindSubFolders(const std::string& fold) {
    if (righe > limit) return;
    const FolderEntries& entries = tree.at(fold);
    for (const std::string& name : entries.folders) {
      lines.push_back("(" + fold + "\\" + name + ")");
      FindSubFolders(fold + "\\" + name);
      if (righe > limit) return;
    }
    hourglass = true;
    for (const std::string& name : entries.folders) FindSubFolders(fold + "\\" + name);
    righe = 0;
    for (const std::string& name : entries.files) {
      ++righe;
      lines.push_back(fold + "\\" + name);
      if (righe > limit) {
        ++messages;
        return;
      }
    }
    hourglass = false;
  }
};

class FolderScanTest : public ::testing::Test {
 protected:
  const std::vector<std::string>& Lines() const { return List1.Kept(); }
  void Scan(const std::string& folder) {
    machine.Windows.Folders.push_back(folder);
    state.ElencoRighe = 0;
    Leggifile(state, machine.platform, List1);
  }

  TestMachine machine;
  TreeFiles files;
  const ScanMachine scan{files, machine.TheScreen, machine.Windows};
  AppState state;
  Listing List1;
};

void Grow(std::map<std::string, FolderEntries>& tree, const std::string& path, int depth,
          std::mt19937& dice) {
  const auto below = [&](unsigned n) { return static_cast<int>(dice() % n); };
  FolderEntries entries;
  for (int i = below(5); i > 0; --i) entries.files.push_back("f" + std::to_string(i));
  for (int i = depth > 0 ? below(4) : 0; i > 0; --i) {
    entries.folders.push_back("d" + std::to_string(i));
    Grow(tree, path + "\\" + entries.folders.back(), depth - 1, dice);
  }
  tree[path] = std::move(entries);
}

TEST_F(FolderScanTest, GivesTheListOfThePlainRuleOnAnyTreeAndReadsEachFolderOnce) {
  std::mt19937 dice(20240607);
  int tripped = 0;
  for (int round = 0; round < 2000; ++round) {
    files.tree.clear();
    files.readings.clear();
    Grow(files.tree, "D:\\Disco", 3, dice);
    const int limit = 2 + round % 4;
    PlainScan plain{files.tree, limit};
    plain.FindSubFolders("D:\\Disco");
    ASSERT_LE(plain.messages, 1);

    machine.Windows.Boxes.clear();
    state.ElencoRighe = 0;
    FindSubFolders("D:\\Disco", state, scan, List1, limit);

    ASSERT_EQ(Lines(), plain.lines) << "round " << round;
    ASSERT_EQ(static_cast<int>(machine.Windows.Boxes.size()), plain.messages);
    ASSERT_EQ(state.ElencoRighe, plain.righe);
    ASSERT_EQ(machine.TheScreen.Pointer() == MousePointer::Hourglass, plain.hourglass);
    for (const auto& [folder, times] : files.readings) ASSERT_EQ(times, 1) << folder;
    tripped += plain.messages;
  }
  EXPECT_GT(tripped, 300);
  EXPECT_LT(tripped, 1700);
}

TEST_F(FolderScanTest, ListsSubFoldersTwiceAndTheChosenFolderWithoutHeading) {
  machine.WriteFile("C:\\R\\r", "");
  machine.WriteFile("C:\\R\\A\\a", "");
  machine.WriteFile("C:\\R\\A\\B\\b", "");
  Scan("C:\\R\\");
  EXPECT_THAT(Lines(),
              ElementsAre("(C:\\R\\A)", "(C:\\R\\A\\B)", "C:\\R\\A\\B\\b", "C:\\R\\A\\B\\b", "C:\\R\\A\\a",
                          "(C:\\R\\A\\B)", "C:\\R\\A\\B\\b", "C:\\R\\A\\B\\b", "C:\\R\\A\\a", "C:\\R\\r"));
  EXPECT_EQ(state.ElencoFontName, "Arial");
  EXPECT_EQ(state.ElencoFontSize, 8);
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
}

TEST_F(FolderScanTest, CancelKeepsListAndColumns) {
  machine.WriteFile("C:\\R\\r", "");
  Scan("C:\\R");
  state.ElencoColonne = 5;
  Scan("");
  EXPECT_EQ(List1.ListCount(), 1U);
  EXPECT_EQ(state.ElencoColonne, 5);
  Scan("C:\\R");
  EXPECT_EQ(state.ElencoColonne, 2);
}

TEST_F(FolderScanTest, AThousandFilesPassAndOneMoreGivesTheMessageAndKeepsTheHourglass) {
  files.tree["D:"] = {{}, std::vector<std::string>(1000, "f")};
  FindSubFolders("D:", state, scan, List1);
  EXPECT_TRUE(machine.Windows.Boxes.empty());
  EXPECT_EQ(List1.ListCount(), 1000U);
  files.tree["D:"].files.resize(1002);
  FindSubFolders("D:", state, scan, List1);
  ASSERT_EQ(machine.Windows.Boxes.size(), 1U);
  EXPECT_EQ(machine.Windows.Boxes[0].text,
            "Numero massimo di files/cartelle visualizzabili : 1000, il programma ignorerà i files in piu'");
  EXPECT_EQ(List1.ListCount(), 1001U);
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Hourglass);
}

TEST_F(FolderScanTest, FolderThatCannotBeReadIsNamedAndTheListStaysAsFarAsItGot) {
  files.tree["D:"] = {{"A", "B", "C"}, {"r"}};
  files.tree["D:\\A"] = {{}, {"a"}};
  try {
    FindSubFolders("D:", state, scan, List1);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.what(), HasSubstr("D:\\B"));
  }
  EXPECT_THAT(Lines(), ElementsAre("(D:\\A)", "D:\\A\\a", "(D:\\B)"));

  EXPECT_THROW(Scan("C:\\Manca"), RuntimeError);
  EXPECT_EQ(List1.ListCount(), 3U);
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
}

TEST_F(FolderScanTest, LinkToAFolderAboveIsListedAndNotEntered) {
  namespace fs = std::filesystem;
  machine.WriteFile("C:\\R\\A\\a", "");
  fs::create_directory_symlink(machine.Root.Path() + "/R", machine.Root.Path() + "/R/A/su");
  fs::create_directory_symlink(machine.Root.Path() + "/R/A", machine.Root.Path() + "/R/Z");
  fs::create_directory_symlink(".", machine.Root.Path() + "/R/A/qui");
  Scan("C:\\R");
  EXPECT_THAT(Lines(), ElementsAre("(C:\\R\\A)", "(C:\\R\\A\\qui)", "(C:\\R\\A\\su)", "C:\\R\\A\\a",
                                   "(C:\\R\\Z)", "(C:\\R\\Z\\qui)", "(C:\\R\\Z\\su)", "C:\\R\\Z\\a",
                                   "(C:\\R\\A\\qui)", "(C:\\R\\A\\su)", "C:\\R\\A\\a",  //
                                   "(C:\\R\\Z\\qui)", "(C:\\R\\Z\\su)", "C:\\R\\Z\\a"));
}

TEST_F(FolderScanTest, FoldersInEachOtherAreCountedExactlyAndOnlySoManyLinesAreKept) {
  const auto scanChain = [&](int depth) {
    files.tree.clear();
    std::string folder = "C:";
    for (int i = 0; i < depth; ++i, folder += "\\d") files.tree[folder] = {{"d"}, {"f"}};
    files.tree[folder] = {{}, {"f"}};
    FindSubFolders("C:", state, scan, List1);
    EXPECT_EQ(List1.Kept().size(), kKeptLines);
    EXPECT_EQ(List1.Kept()[0], "(C:\\d)");
    EXPECT_EQ(List1.Kept()[1], "(C:\\d\\d)");
  };
  scanChain(40);
  EXPECT_EQ(List1.ListCount(), 3 * (LineCount{1} << 40) - 2);
  scanChain(200);
  EXPECT_EQ(List1.ListCount(), kMostLines);
}

}  // namespace
}  // namespace Morvane
