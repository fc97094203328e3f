#include "windows/image_picker/folder_tree.h"

#include <filesystem>
#include <map>
#include <utility>

#include "picker_machine.h"
#include "platform/files/local_file_system.h"

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

std::vector<std::string> ChildTexts(TreeView& tree, const std::string& key) {
  std::vector<std::string> texts;
  for (const TreeNode* node : tree.Find(key)->Children()) texts.push_back(node->Text());
  return texts;
}

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
  EXPECT_THAT(ChildTexts(tree, "desk"), ElementsAre("Risorse del computer"));
  // No wait for a medium that is not there.
  EXPECT_THAT(drives.Touched, Not(Contains("A:\\")));
  EXPECT_THAT(drives.Touched, Not(Contains("I:\\")));
}

TEST_F(PickerTest, TheTreeOpensWithTheFirstDrivesFoldersInView) {
  machine.MakeFolder("C:\\mY pHOTOS\\vacanze");
  Mount("/dev/sr0", "iso9660", "/media/disco");
  Open();
  EXPECT_THAT(Below("Desktop"), ElementsAre("Risorse del computer", "Scrivania"));
  EXPECT_THAT(Below("Risorse del computer"), ElementsAre(" (C:)", "Disco (D:)"));
  EXPECT_TRUE(Tree(window).isExpanded(Node(" (C:)")));
  EXPECT_THAT(Below(" (C:)"), ElementsAre("Home", "Media", "Morvane", "My Photos"));
  const TreeNode& photos = *window.tvwdirtree.Find("C:\\My Photos");
  EXPECT_EQ(photos.Image(), "closed");
  EXPECT_EQ(photos.SelectedImage(), "open");
  EXPECT_THAT(Below("My Photos"), ElementsAre("Vacanze"));
  EXPECT_THAT(Below("Disco (D:)"), IsEmpty());
  EXPECT_EQ(state.CartellaDesktop, "C:\\home\\u\\Scrivania");
  EXPECT_EQ(contentsLoads, 1);
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
}

TEST_F(PickerTest, AFloppyHasNoButtonUntilAClickReadsIt) {
  Mount("/dev/fd0", "vfat", "/media/floppy");
  machine.MakeFolder("C:\\media\\floppy\\FOTO");
  Open();
  const std::string floppy = Below("Risorse del computer").at(0);
  EXPECT_THAT(Below(floppy), IsEmpty());
  EXPECT_FALSE(Tree(window).isExpanded(Node(" (C:)")));  // the fourth node is then a drive

  ClickNode(floppy);
  machine.MakeFolder("C:\\media\\floppy\\Album");
  ClickNode(floppy);
  EXPECT_THAT(Below(floppy), ElementsAre("Foto", "Album"));  // in the order they came
}

TEST_F(PickerTest, OpeningANodeReadsOneLevelEachTime) {
  machine.MakeFolder("C:\\dati\\b\\c\\d");
  Open();
  EXPECT_THAT(Below("B"), IsEmpty());
  Toggle("Dati");
  EXPECT_THAT(Below("Dati"), ElementsAre("B"));
  EXPECT_THAT(Below("B"), ElementsAre("C"));
  EXPECT_THAT(Below("C"), IsEmpty());

  machine.MakeFolder("C:\\dati\\a");
  std::filesystem::remove_all(machine.Root.Path() + "/dati/b");
  Toggle("Dati");
  Toggle("Dati");
  EXPECT_THAT(Below("Dati"), ElementsAre("A", "B"));  // new ones come, deleted ones stay
  ClickNode("B");
  EXPECT_EQ(window.Label17.Caption(), "N. 0");
}

// The key that opens everything below stops at what is in view; a press that slides to another row does
// nothing.
TEST_F(PickerTest, KeysAndSlidesReadNoMoreThanWhatIsShown) {
  machine.MakeFolder("C:\\dati\\b");
  std::filesystem::create_directory_symlink(".", machine.Root.Path() + "/dati/b/anello");
  Open();
  ClickNode("Dati");
  Hand::Key(Qt::Key_Asterisk);
  EXPECT_THAT(Below("Dati"), ElementsAre("B"));
  EXPECT_THAT(Below("B"), ElementsAre("Anello"));
  EXPECT_THAT(Below("Anello"), IsEmpty());

  const QRect from = Tree(window).visualRect(Node("Dati"));
  const QRect to = Tree(window).visualRect(Node("Morvane"));
  QWidget* const rows = Tree(window).viewport();
  QTest::mousePress(rows, Qt::LeftButton, {}, from.center());
  QTest::mouseMove(rows, to.center());
  QTest::mouseRelease(rows, Qt::LeftButton, {}, to.center());
  Hand::Settle();
  EXPECT_EQ(Tree(window).currentIndex(), Node("Dati"));
  QTest::mouseClick(rows, Qt::LeftButton, Qt::ControlModifier, from.center());
  EXPECT_TRUE(Tree(window).selectionModel()->isSelected(Node("Dati")));
  EXPECT_EQ(window.lblPath.Caption(), "C:\\Dati\r\n");
}

// Letters that do not come back from upper case would make a key that names no folder.
TEST_F(PickerTest, FolderOfAnyFirstLetterCanBeOpened) {
  for (const std::string name : {"µ prova", "ı prova", "ſ prova", "ς prova", "à prova"}) {
    machine.WritePicture("C:\\" + name + "\\a.jpg", 100, 100);
  }
  Open();
  for (const std::string text : {"µ Prova", "ı Prova", "ſ Prova", "ς Prova", "À Prova"}) {
    ClickNode(text);
    EXPECT_THAT(Rows(), ElementsAre("a.jpg")) << text;
  }
}

TEST_F(PickerTest, ARefusedFolderLeavesItsSelectedImageToTheNodeAddedLast) {
  machine.MakeFolder("C:\\dati\\b");
  TreeView& tree = window.tvwdirtree;
  tree.Add("", "C:\\Dati", "Dati", "closed");
  tree.Add("C:\\Dati", "C:\\Dati\\B", "B", "closed");
  tree.Add("", "altro", "Altro", "closed");
  AddSubFolders(tree, "C:\\Dati", *machine.Files);
  EXPECT_EQ(tree.NodeCount(), 3);
  EXPECT_EQ(tree.Find("altro")->SelectedImage(), "open");
  EXPECT_EQ(tree.Find("C:\\Dati\\B")->SelectedImage(), "closed");
}

TEST_F(PickerTest, AFolderNamedDeskGivesNoButton) {
  machine.MakeFolder("C:\\uno\\desk");
  machine.MakeFolder("C:\\due\\Desk");
  machine.MakeFolder("C:\\tre\\desk");
  machine.MakeFolder("C:\\tre\\altro");
  EXPECT_EQ(FirstSubFolder("C:\\Uno", *machine.Files), "");
  EXPECT_EQ(FirstSubFolder("C:\\Due", *machine.Files), "Desk");
  EXPECT_EQ(FirstSubFolder("C:\\Manca", *machine.Files), "");
  EXPECT_EQ(FirstSubFolder("", *machine.Files), "");

  window.tvwdirtree.Add("", "C:\\Tre", "Tre", "closed");
  AddSubFolders(window.tvwdirtree, "C:\\Tre", *machine.Files);
  EXPECT_THAT(ChildTexts(window.tvwdirtree, "C:\\Tre"), ElementsAre("Altro", "Desk"));
}

TEST_F(PickerTest, FoldersThatDifferInCaseAloneAreOneNode) {
  machine.MakeFolder("C:\\dati\\FOTO\\prima");
  machine.MakeFolder("C:\\dati\\foto\\seconda");
  window.tvwdirtree.Add("", "C:\\Dati", "Dati", "closed");
  AddSubFolders(window.tvwdirtree, "C:\\Dati", *machine.Files);
  EXPECT_THAT(ChildTexts(window.tvwdirtree, "C:\\Dati"), ElementsAre("Foto"));
  EXPECT_THAT(ChildTexts(window.tvwdirtree, "C:\\Dati\\Foto"),
              ElementsAre(FirstSubFolder("C:\\Dati\\Foto", *machine.Files)));
}

}  // namespace

}  // namespace Morvane
