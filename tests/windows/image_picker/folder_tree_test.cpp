#include "windows/image_picker/folder_tree.h"

#include <filesystem>
#include <map>
#include <utility>

#include "picker_machine.h"

namespace Morvane {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

// Drives of every type, empty, and no desktop folder; it records which drives were asked for more than their
// type.
class DrivesWithoutFolders : public LocalFileSystem {
 public:
  using Drives = std::vector<std::pair<std::string, int>>;

  DrivesWithoutFolders(const std::string& root, Drives drives)
      : LocalFileSystem(root, MountTable("", ""), ""), drives_(std::move(drives)) {}

  mutable std::vector<std::string> Touched;

  std::vector<std::string> DriveRoots() const override {
    std::vector<std::string> roots;
    for (const auto& [drive, type] : drives_) roots.push_back(drive + "\\");
    return roots;
  }
  DriveType TypeOfDrive(const std::string& drive) const override {
    for (const auto& [name, type] : drives_) {
      if (name == drive) return static_cast<DriveType>(type);
    }
    return DriveType::Unknown;
  }
  std::string VolumeLabel(const std::string& root) const override {
    Touched.push_back(root);
    return root == "D:\\" ? "MIEI DATI" : "";
  }
  std::string FirstSubFolder(const std::string& folder,
                             const std::function<bool(const std::string&)>&) const override {
    Touched.push_back(folder);
    return "";
  }

 private:
  Drives drives_;
};

TEST_F(PickerTest, EachTypeOfDriveHasItsTextAndImage) {
  const DrivesWithoutFolders::Drives drivesByType = {{"B:", 6}, {"A:", 2}, {"D:", 3}, {"E:", 0},
                                                     {"F:", 4}, {"G:", 5}, {"H:", 1}, {"I:", 2}};
  DrivesWithoutFolders drives(machine.Root.Path(), drivesByType);
  TreeView& tree = window.tvwdirtree;
  EXPECT_EQ(BuildTree(tree, state, machine.TheScreen, drives, [] {}), "D:");

  const std::map<std::string, std::pair<std::string, std::string>> expected = {
      {"B:", {"(B:)", "desktop"}}, {"A:", {"Floppy (A:)", "floppy"}}, {"D:", {"Miei Dati (D:)", "hard"}},
      {"E:", {"(E:)", "hard"}},    {"F:", {" (F:)", "net"}},          {"G:", {" (G:)", "cdrom"}},
      {"H:", {" (H:)", "hard"}},   {"I:", {"Floppy (I:)", "floppy"}},
  };
  for (const auto& [drive, look] : expected) {
    EXPECT_EQ(tree.Find(drive)->Text(), look.first);
    EXPECT_EQ(tree.Find(drive)->Image(), look.second) << drive;
  }
  EXPECT_THAT(TextsBelow("desk"), ElementsAre("Risorse del computer"));
  // No wait for a medium that is not there.
  EXPECT_THAT(drives.Touched, Not(Contains("A:\\")));
  EXPECT_THAT(drives.Touched, Not(Contains("I:\\")));
}

TEST_F(PickerTest, TheTreeOpensWithTheFirstDrivesFoldersInView) {
  machine.MakeFolder("C:\\mY pHOTOS\\vacanze");
  Mount("/dev/sr0", "iso9660", "/media/disco");
  window.form.EnsureLoaded();

  const TreeView& tree = window.tvwdirtree;
  EXPECT_EQ(tree.Find("desk")->Text(), "Desktop");
  EXPECT_THAT(TextsBelow("desk"), ElementsAre("Risorse del computer", "Scrivania"));
  EXPECT_EQ(tree.Find("C:\\home\\u\\Scrivania")->Parent(), tree.Find("desk"));
  EXPECT_THAT(TextsBelow("root"), ElementsAre(" (C:)", "Disco (D:)"));
  EXPECT_TRUE(tree.Find("C:")->Expanded());
  EXPECT_THAT(TextsBelow("C:"), ElementsAre("Desktop", "Home", "Media", "Morvane", "My Photos"));
  EXPECT_EQ(tree.Find("C:\\My Photos")->Image(), "closed");
  EXPECT_EQ(tree.Find("C:\\My Photos")->SelectedImage(), "open");
  EXPECT_THAT(TextsBelow("C:\\My Photos"), ElementsAre("Vacanze"));
  EXPECT_THAT(TextsBelow("D:"), IsEmpty());
  EXPECT_EQ(state.CartellaDesktop, "C:\\home\\u\\Scrivania");
  EXPECT_EQ(contentsLoads, 1);
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
}

TEST_F(PickerTest, AFloppyHasNoButtonUntilAClickReadsIt) {
  Mount("/dev/fd0", "vfat", "/media/floppy");
  machine.MakeFolder("C:\\media\\floppy\\FOTO");
  window.form.EnsureLoaded();
  EXPECT_THAT(TextsBelow("A:"), IsEmpty());
  EXPECT_FALSE(window.tvwdirtree.Find("C:")->Expanded());  // the fourth node is then a drive

  ClickNode("A:");
  machine.MakeFolder("C:\\media\\floppy\\Album");
  ClickNode("A:");
  EXPECT_THAT(TextsBelow("A:"), ElementsAre("Foto", "Album"));
  EXPECT_FALSE(window.tvwdirtree.Find("A:")->Sorted());
}

TEST_F(PickerTest, OpeningANodeReadsOneLevelEachTime) {
  machine.MakeFolder("C:\\dati\\b\\c\\d");
  window.form.EnsureLoaded();
  TreeView& tree = window.tvwdirtree;
  TreeNode& folder = *tree.Find("C:\\Dati");
  EXPECT_EQ(tree.Find("C:\\Dati\\B\\C"), nullptr);

  tree.UserExpands(folder);
  EXPECT_THAT(TextsBelow("C:\\Dati"), ElementsAre("B"));
  EXPECT_THAT(TextsBelow("C:\\Dati\\B"), ElementsAre("C"));  // the former placeholder has its own now
  EXPECT_EQ(tree.Find("C:\\Dati\\B\\C\\D"), nullptr);

  machine.MakeFolder("C:\\dati\\a");
  std::filesystem::remove_all(machine.Root.Path() + "/dati/b");
  tree.UserCollapses(folder);
  tree.UserExpands(folder);
  EXPECT_THAT(TextsBelow("C:\\Dati"), ElementsAre("A", "B"));  // new ones come, deleted ones stay
  EXPECT_TRUE(tree.Redraw());
  ClickNode("C:\\Dati\\B");
  EXPECT_EQ(window.Label17.Caption(), "N. 0");
}

TEST_F(PickerTest, ARefusedFolderLeavesItsSelectedImageToTheNodeAddedLast) {
  machine.MakeFolder("C:\\dati\\b");
  TreeView& tree = window.tvwdirtree;
  tree.Add("", "C:\\Dati", "Dati", "closed");
  tree.Add("C:\\Dati", "C:\\Dati\\B", "B", "closed");
  tree.Add("", "altro", "Altro", "closed");
  AddSubFolders(tree, "C:\\Dati", files);
  EXPECT_EQ(tree.NodeCount(), 3);
  EXPECT_EQ(tree.Find("altro")->SelectedImage(), "open");
  EXPECT_EQ(tree.Find("C:\\Dati\\B")->SelectedImage(), "closed");
}

TEST_F(PickerTest, AFolderNamedDeskGivesNoButton) {
  machine.MakeFolder("C:\\uno\\desk");
  machine.MakeFolder("C:\\due\\Desk");
  machine.MakeFolder("C:\\tre\\desk");
  machine.MakeFolder("C:\\tre\\altro");
  EXPECT_EQ(FirstSubFolder("C:\\Uno", files), "");
  EXPECT_EQ(FirstSubFolder("C:\\Due", files), "Desk");
  EXPECT_EQ(FirstSubFolder("C:\\Manca", files), "");
  EXPECT_EQ(FirstSubFolder("", files), "");

  window.tvwdirtree.Add("", "C:\\Tre", "Tre", "closed");
  AddSubFolders(window.tvwdirtree, "C:\\Tre", files);
  EXPECT_THAT(TextsBelow("C:\\Tre"), ElementsAre("Altro", "Desk"));
}

TEST_F(PickerTest, FoldersThatDifferInCaseAloneAreOneNode) {
  machine.MakeFolder("C:\\dati\\FOTO\\prima");
  machine.MakeFolder("C:\\dati\\foto\\seconda");
  window.tvwdirtree.Add("", "C:\\Dati", "Dati", "closed");
  AddSubFolders(window.tvwdirtree, "C:\\Dati", files);
  EXPECT_THAT(TextsBelow("C:\\Dati"), ElementsAre("Foto"));
  EXPECT_THAT(TextsBelow("C:\\Dati\\Foto"), ElementsAre(FirstSubFolder("C:\\Dati\\Foto", files)));
}

}  // namespace

}  // namespace Morvane
