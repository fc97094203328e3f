#include "windows/image_picker/image_file_operations.h"

#include <filesystem>

#include "picker_machine.h"

namespace Morvane {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ImageFileTest : public PickerTest {
 protected:
  ImageFileTest() {
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) machine.WritePicture(kFolder + name, 100, 100);
    window.lblPath.SetCaption("C:\\Foto");
    window.Command4.PerformClick();
    window.List1.UserSelects(1);
  }

  void RightClick(std::deque<std::string> choices) {
    windows.MenuChoices = std::move(choices);
    windows.UserEvent([&] { window.List1.PerformMouseDown(MouseButton::Right, 0, 10, 10); });
    EXPECT_THAT(windows.MenuChoices, IsEmpty());
  }

  const std::string kFolder = "C:\\Foto\\";
};

TEST_F(ImageFileTest, RenamingKeepsTheRowsPlaceAndFollowsTheFile) {
  windows.Inputs = {"z.txt"};
  RightClick({"MenuRinomina"});
  EXPECT_EQ(windows.Prompts[0].title, "Rinomina un file di immagine");
  EXPECT_EQ(windows.Prompts[0].defaultText, "b.jpg");
  EXPECT_THAT(Rows(), ElementsAre("a.jpg", "z.txt", "c.jpg"));
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\z.txt");
  EXPECT_EQ(pictures.Loaded.back(), "C:\\Foto\\z.txt");
  EXPECT_TRUE(files.FileExists("C:\\Foto\\z.txt"));
  EXPECT_FALSE(files.FileExists("C:\\Foto\\b.jpg"));
}

TEST_F(ImageFileTest, AFailedRenameTellsAndOpensTheMenuAgain) {
  windows.Inputs = {"c.jpg", "manca\\c.jpg"};
  RightClick({"MenuRinomina", "MenuRinomina", ""});
  ASSERT_EQ(windows.Boxes.size(), 2U);
  EXPECT_EQ(
      windows.Boxes[0].text,
      "Si è verificato un errore durante il processo di ridenominazione del file, o è stato usato un nome "
      "di file errato oppure non è possibile scrivere sulla directory specificata (cd-rom, rete ecc.)");
  EXPECT_EQ(windows.PopupsShown, 3);
  EXPECT_THAT(Rows(), ElementsAre("a.jpg", "b.jpg", "c.jpg"));
  EXPECT_TRUE(files.FileExists("C:\\Foto\\b.jpg"));
}

TEST_F(ImageFileTest, NothingHappensWithoutANameOrARow) {
  windows.Inputs = {""};
  windows.Answers = {MsgBoxAnswer::Cancel};
  RightClick({"MenuRinomina"});
  RightClick({"menuCancellaFile"});
  EXPECT_THAT(Rows(), ElementsAre("a.jpg", "b.jpg", "c.jpg"));
  EXPECT_TRUE(files.FileExists("C:\\Foto\\b.jpg"));

  window.List1.Clear();
  RightClick({"MenuRinomina"});
  RightClick({"menuCancellaFile"});
  window.List1.PerformMouseDown(MouseButton::Left, 0, 10, 10);
  EXPECT_EQ(windows.Prompts.size(), 1U);
  EXPECT_EQ(windows.Boxes.size(), 1U);
}

TEST_F(ImageFileTest, DeletingLeavesCountPreviewAndChoiceAsTheyWere) {
  windows.Answers = {MsgBoxAnswer::Ok};
  RightClick({"menuCancellaFile"});
  EXPECT_EQ(windows.Boxes[0].text, "Sei sicuro di vole cancellare il file b.jpg ?");
  EXPECT_FALSE(files.FileExists("C:\\Foto\\b.jpg"));
  EXPECT_THAT(Rows(), ElementsAre("a.jpg", "c.jpg"));
  EXPECT_EQ(window.List1.ListIndex(), -1);
  EXPECT_EQ(window.Label17.Caption(), "N. 3");
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
}

TEST_F(ImageFileTest, DeletingIsTriedAgainAfterEachMessage) {
  namespace fs = std::filesystem;
  const fs::path file = machine.Root.Path() + "/Foto/b.jpg";
  fs::permissions(file, fs::perms::owner_read);
  windows.AfterBox = [&] {
    if (windows.Boxes.size() == 3) fs::permissions(file, fs::perms::owner_all);
  };
  windows.Answers = {MsgBoxAnswer::Ok};
  RightClick({"menuCancellaFile"});
  ASSERT_EQ(windows.Boxes.size(), 3U);
  EXPECT_EQ(
      windows.Boxes[2].text,
      "Non è possibile cancellare il file b.jpg controllare che non si tratti di un file in sola lettura o "
      "una cartella di un CD-ROM o DVD-ROM");
  EXPECT_FALSE(fs::exists(file));
  EXPECT_THAT(Rows(), ElementsAre("a.jpg", "c.jpg"));
}

}  // namespace

}  // namespace Morvane
