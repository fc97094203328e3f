#include "windows/image_picker/folder_tree.h"

#include <QTreeView>
#include <utility>

#include "picker_fixture.h"
#include "platform/files/file_system.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Empty drives A:, B: and so on, of types that no mount of this system gives, too; it notes the drives that
// were asked for more than their type.
class Drives : public FileSystem {
 public:
  explicit Drives(std::vector<int> types)
      : FileSystem("/", MountTable("", ""), ""), types_(std::move(types)) {}

  mutable std::string asked;

  std::vector<std::string> DriveRoots() const override {
    std::vector<std::string> roots;
    for (std::size_t i = 0; i < types_.size(); ++i) roots.push_back(std::string(1, char('A' + i)) + ":\\");
    return roots;
  }
  DriveType TypeOfDrive(const std::string& drive) const override {
    return static_cast<DriveType>(types_.at(static_cast<std::size_t>(drive[0] - 'A')));
  }
  std::string VolumeLabel(const std::string& root) const override {
    asked += root[0];
    return root == "D:\\" ? "MIEI DATI" : "";
  }
  std::string FirstSubFolder(const std::string& folder,
                             const std::function<bool(const std::string&)>&) const override {
    asked += folder[0];
    return "";
  }

 private:
  std::vector<int> types_;
};

TEST_F(PickerTest, EachTypeOfDriveHasItsTextAndImageAndNoFloppyIsWaitedFor) {
  const Drives drives({6, 2, 5, 3, 0, 4, 1});
  Form form({.name = "Form1", .caption = ""});
  TreeView tree(form, "tree");
  EXPECT_EQ(BuildTree(tree, state, machine.TheScreen, drives, [] {}), "D:");
  Texts looks;
  for (const TreeNode* drive : tree.Find("root")->Children()) looks.push_back(drive->Text() + drive->Image());
  EXPECT_THAT(looks, ElementsAre("(A:)desktop", "Floppy (B:)floppy", " (C:)cdrom", "Miei Dati (D:)hard",
                                 "(E:)hard", " (F:)net", " (G:)hard"));
  EXPECT_EQ(drives.asked, "CCDDFFGG");
}

TEST_F(PickerTest, TheTreeOpensWithTheFirstDrivesFoldersInView) {
  machine.MakeFolder("C:\\mY pHOTOS\\vacanze");
  Mount("/dev/sr0", "iso9660", "/media/disco");
  Mount("/dev/sdb1", "vfat", "/media/u/chiave");
  machine.MakeFolder("C:\\by-label");
  std::filesystem::create_symlink("../../sdb1", machine.Root.Path() + "/by-label/MARE");
  Open();
  EXPECT_THAT(Below("Desktop"), ElementsAre("Risorse del computer", "Scrivania"));
  EXPECT_THAT(Below("Risorse del computer"), ElementsAre(" (C:)", " (D:)", "Mare (E:)"));
  EXPECT_TRUE(Hand::See<QTreeView>(picker->tvwdirtree).isExpanded(Node(" (C:)")));
  EXPECT_THAT(Below(" (C:)"), ElementsAre("By-label", "Home", "Media", "Morvane", "My Photos"));
  EXPECT_THAT(Below("My Photos"), ElementsAre("Vacanze"));
  EXPECT_THAT(Below(" (D:)"), IsEmpty());
  const TreeNode& photos = *picker->tvwdirtree.Find("C:\\My Photos");
  EXPECT_EQ(photos.Image() + photos.SelectedImage(), "closedopen");
  EXPECT_EQ(picker->tvwdirtree.Find("C:\\home\\u\\Scrivania")->SelectedImage(), "open")
      << "it was the last node when the first folder of C: came again";
  EXPECT_EQ(state.CartellaDesktop, "C:\\home\\u\\Scrivania");
  EXPECT_EQ(contentsLoads, 1);
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
}

TEST_F(PickerTest, AFloppyHasNoButtonUntilAClickReadsIt) {
  Mount("/dev/fd0", "vfat", "/media/floppy");
  machine.MakeFolder("C:\\media\\floppy\\FOTO");
  Open();
  EXPECT_THAT(Below("Floppy (A:)"), IsEmpty());
  EXPECT_FALSE(Hand::See<QTreeView>(picker->tvwdirtree).isExpanded(Node(" (C:)")))
      << "the fourth node is then a drive";
  ClickNode("Floppy (A:)");
  machine.MakeFolder("C:\\media\\floppy\\Album");
  ClickNode("Floppy (A:)");
  EXPECT_THAT(Below("Floppy (A:)"), ElementsAre("Foto", "Album")) << "in the order they came";
}

TEST_F(PickerTest, OpeningANodeReadsOneLevelEachTimeAndTheAsteriskNoMore) {
  machine.MakeFolder("C:\\dati\\b\\c\\d");
  Open();
  Toggle("Dati");
  EXPECT_THAT(Below("Dati"), ElementsAre("B"));
  EXPECT_THAT(Below("B"), ElementsAre("C"));
  EXPECT_THAT(Below("C"), IsEmpty());
  machine.MakeFolder("C:\\dati\\a");
  std::filesystem::create_directory_symlink(".", machine.Root.Path() + "/dati/a/anello");
  std::filesystem::remove_all(machine.Root.Path() + "/dati/b");
  Toggle("Dati");
  Toggle("Dati");
  EXPECT_THAT(Below("Dati"), ElementsAre("A", "B")) << "new ones come, deleted ones stay";
  ClickNode("B");
  EXPECT_EQ(picker->Label17.Caption(), "N. 0");
  ClickNode("A");
  Hand::Key(Qt::Key_Asterisk);
  EXPECT_THAT(Below("A"), ElementsAre("Anello"));
  EXPECT_THAT(Below("Anello"), ElementsAre("Anello"));
  EXPECT_THAT(Hand::Rows(picker->tvwdirtree, Node("Anello").model()->index(0, 0, Node("Anello"))), IsEmpty());
}

TEST_F(PickerTest, HighlightPathAndListAgreeWhateverClickComes) {
  WritePhotos({"a.jpg"});
  Open();
  ClickNode("Foto");
  auto& tree = Hand::See<QTreeView>(picker->tvwdirtree);
  const QPoint photos = tree.visualRect(Node("Foto")).center();
  const QPoint other = tree.visualRect(Node("Morvane")).center();
  for (const auto& [from, to] : {std::pair(photos, other), std::pair(other, photos)}) {
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, from);
    QMouseEvent slide(QEvent::MouseMove, to, tree.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                      {});
    QApplication::sendEvent(tree.viewport(), &slide);
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, to);
  }
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::ControlModifier, photos);
  QTest::mouseClick(tree.viewport(), Qt::RightButton, {}, other);
  Hand::Settle();
  EXPECT_THAT(tree.selectionModel()->selectedIndexes(), ElementsAre(Node("Foto")));
  EXPECT_EQ(picker->lblPath.Caption(), "C:\\Foto\r\n");
  EXPECT_THAT(Rows(), ElementsAre("a.jpg"));
  Hand::Key(Qt::Key_Down);
  EXPECT_EQ(picker->lblPath.Caption(), "C:\\Home\r\n");
  EXPECT_THAT(Rows(), IsEmpty());
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

TEST_F(PickerTest, FolderNamedDeskIsNoPlaceholder) {
  for (const char* folder : {"uno\\desk", "due\\Desk", "tre\\desk", "tre\\testo"}) {
    machine.MakeFolder(std::string("C:\\") + folder);
  }
  Open();
  EXPECT_THAT(Below("Uno"), IsEmpty());
  EXPECT_THAT(Below("Due"), ElementsAre("Desk"));
  EXPECT_THAT(Below("Tre"), ElementsAre("Testo"));
  Toggle("Tre");
  EXPECT_THAT(Below("Tre"), ElementsAre("Desk", "Testo"));
}

TEST_F(PickerTest, FoldersThatDifferInCaseAloneAreOneNodeWhichLeadsWhereItsKeyDoes) {
  machine.WritePicture("C:\\dati\\Foto\\giusta\\a.jpg", 100, 100);
  machine.WritePicture("C:\\dati\\FOTO\\altra\\b.jpg", 100, 100);
  machine.WritePicture("C:\\dati\\foto\\ultima\\c.jpg", 100, 100);
  Open();
  Toggle("Dati");
  EXPECT_THAT(Below("Dati"), ElementsAre("Foto"));
  EXPECT_THAT(Below("Foto"), ElementsAre("Giusta"));
  Toggle("Foto");
  ClickNode("Giusta");
  EXPECT_THAT(Rows(), ElementsAre("a.jpg"));
}

}  // namespace
}  // namespace Morvane
