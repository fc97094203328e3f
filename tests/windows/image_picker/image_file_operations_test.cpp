#include "windows/image_picker/image_file_operations.h"

#include <QApplication>
#include <QContextMenuEvent>

#include "picker_fixture.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ImageFileTest : public PickerTest {
 protected:
  ImageFileTest() {
    WritePhotos({"a.jpg", "b.jpg", "c.jpg"});
    Open();
    ClickNode("Foto");
    ClickRow(1);
  }

  // Anywhere in the list: it acts on the selected row.
  void RightClick(std::deque<std::string> choices) {
    machine.Windows.MenuChoices = std::move(choices);
    Hand::Click(picker->List1, 100, 600, Qt::RightButton);
    EXPECT_THAT(machine.Windows.MenuChoices, IsEmpty());
  }
  Texts OnDisk() const { return machine.Files->PlainFiles("C:\\Foto"); }
};

TEST_F(ImageFileTest, RenamingKeepsTheRowsPlaceAndFollowsTheFile) {
  machine.Windows.Inputs = {"z.txt"};
  RightClick({"MenuRinomina"});
  EXPECT_EQ(machine.Windows.Prompts[0].title, "Rinomina un file di immagine");
  EXPECT_EQ(machine.Windows.Prompts[0].defaultText, "b.jpg");
  EXPECT_THAT(Rows(), ElementsAre("a.jpg", "z.txt", "c.jpg"));
  EXPECT_THAT(OnDisk(), ElementsAre("a.jpg", "c.jpg", "z.txt"));
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\z.txt");
  EXPECT_EQ(machine.Pictures.Loaded.back(), "C:\\Foto\\z.txt");
}

TEST_F(ImageFileTest, HighlightedRowStaysWhateverIsPressed) {
  auto& list = Hand::See<QAbstractItemView>(picker->List1);
  const auto at = [&](int row) { return list.visualRect(list.model()->index(row, 0)).center(); };
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, at(1));
  QTest::keyClick(&list, Qt::Key_Space, Qt::ControlModifier);
  QTest::mousePress(list.viewport(), Qt::LeftButton, {}, at(1));
  QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, at(2));
  machine.Windows.MenuChoices = {""};
  QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
  QApplication::sendEvent(&list, &byKey);
  EXPECT_THAT(machine.Windows.MenuChoices, IsEmpty());
  RightClick({""});
  EXPECT_THAT(list.selectionModel()->selectedIndexes(), ElementsAre(list.model()->index(1, 0)));
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
}

TEST_F(ImageFileTest, AFailedRenameTellsAndOpensTheMenuAgain) {
  machine.Windows.Inputs = {"c.jpg", "manca\\c.jpg"};
  RightClick({"MenuRinomina", "MenuRinomina", ""});
  ASSERT_EQ(machine.Windows.Boxes.size(), 2U);
  EXPECT_EQ(
      machine.Windows.Boxes[0].text,
      "Si è verificato un errore durante il processo di ridenominazione del file, o è stato usato un nome "
      "di file errato oppure non è possibile scrivere sulla directory specificata (cd-rom, rete ecc.)");
  EXPECT_THAT(Rows(), ElementsAre("a.jpg", "b.jpg", "c.jpg"));
  EXPECT_THAT(OnDisk(), ElementsAre("a.jpg", "b.jpg", "c.jpg"));
}

TEST_F(ImageFileTest, NothingHappensWithoutANameOrARow) {
  machine.Windows.Inputs = {""};
  machine.Windows.Answers = {MsgBoxAnswer::Cancel};
  RightClick({"MenuRinomina"});
  RightClick({"menuCancellaFile"});
  EXPECT_THAT(Rows(), ElementsAre("a.jpg", "b.jpg", "c.jpg"));
  EXPECT_THAT(OnDisk(), ElementsAre("a.jpg", "b.jpg", "c.jpg"));

  ClickNode("Morvane");
  RightClick({"MenuRinomina"});
  RightClick({"menuCancellaFile"});
  Hand::Press(picker->List1);
  EXPECT_EQ(machine.Windows.Prompts.size(), 1U);
  EXPECT_EQ(machine.Windows.Boxes.size(), 1U);
}

TEST_F(ImageFileTest, DeletingIsTriedAgainAfterEachMessageAndLeavesCountPreviewAndChoice) {
  namespace fs = std::filesystem;
  const fs::path file = machine.Root.Path() + "/Foto/b.jpg";
  fs::permissions(file, fs::perms::owner_read);
  machine.Windows.AfterBox = [&] {
    if (machine.Windows.Boxes.size() == 3) fs::permissions(file, fs::perms::owner_all);
  };
  machine.Windows.Answers = {MsgBoxAnswer::Ok};
  RightClick({"menuCancellaFile"});
  ASSERT_EQ(machine.Windows.Boxes.size(), 3U);
  EXPECT_EQ(machine.Windows.Boxes[0].text, "Sei sicuro di vole cancellare il file b.jpg ?");
  EXPECT_EQ(
      machine.Windows.Boxes[2].text,
      "Non è possibile cancellare il file b.jpg controllare che non si tratti di un file in sola lettura o "
      "una cartella di un CD-ROM o DVD-ROM");
  EXPECT_THAT(OnDisk(), ElementsAre("a.jpg", "c.jpg"));
  EXPECT_THAT(Rows(), ElementsAre("a.jpg", "c.jpg"));
  EXPECT_THAT(Hand::See<QAbstractItemView>(picker->List1).selectionModel()->selectedIndexes(), IsEmpty());
  EXPECT_EQ(picker->Label17.Caption(), "N. 3");
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
  EXPECT_NE(picker->Image1.GetPicture(), nullptr);
}

}  // namespace
}  // namespace Morvane
