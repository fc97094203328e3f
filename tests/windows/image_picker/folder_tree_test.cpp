#include "windows/image_picker/folder_tree.h"

#include <QTreeView>
#include <utility>

#include "picker_fixture.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(PickerTest, EachTypeOfDriveHasItsTextAndImageAndNoFloppyIsWaitedFor) {
  Mount("/dev/fd0", "vfat", "/media/floppy");
  Mount("/dev/sr0", "iso9660", "/media/disco");
  Mount("casa:/foto", "nfs", "/media/rete");
  Mount("/dev/sdb1", "vfat", "/media/u/chiave");
  machine.MakeFolder("C:\\by-label");
  std::filesystem::create_symlink("../../sdb1", machine.Root.Path() + "/by-label/MIEI\\x20DATI");
  bool asked = false;
  machine.Files->BeforeCall = [&](const std::string& call, const std::string& path) {
    asked = asked || (path.starts_with("A:") && call != "TypeOfDrive");
  };
  Open();
  EXPECT_FALSE(asked);
  Texts looks;
  for (const TreeNode* drive : picker->tvwdirtree.Find("root")->Children())
    looks.push_back(drive->Text() + " " + drive->Image());
  EXPECT_THAT(looks, ElementsAre("Floppy (A:) floppy", " (C:) hard", " (D:) cdrom", "Rete (E:) net",
                                 "Miei Dati (F:) hard"));
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
