#include <filesystem>

#include "dialog_fixture.h"

namespace Morvane {
namespace {

class DialogFiles : public DialogTest {
 protected:
  DialogFiles() {
    WriteCovers("a", {50, 51});
    WriteCovers("b", {60});
    Open();
  }
  void MakeReadOnly(const std::string& path) {
    std::filesystem::permissions(machine.Files->ToNative(path), std::filesystem::perms::owner_read);
  }
};

TEST_F(DialogFiles, NewFileTakesTheMeasuresOnShowOnlyFromCoverOne) {
  Press(dialog->Command2, "uno");
  EXPECT_EQ(dialog->List1.Text(), "uno");
  EXPECT_EQ(Shown(dialog->Text1), "50");
  EXPECT_EQ(Shown(dialog->Text4), "20");

  Select(0);
  Press(dialog->Command4);
  Press(dialog->Command2, "due");
  EXPECT_EQ(Listed(), (Rows{"a", "b", "due", "uno"}));
  EXPECT_EQ(Shown(dialog->Text1), "100");
  EXPECT_EQ(Shown(dialog->Text4), "250") << "off the sheet";
  EXPECT_EQ(state.NumCopertine, 1);
}

TEST_F(DialogFiles, SaveAsKeepsTheSelectionAndRenamePromptsForTheOtherFile) {
  Press(dialog->Command16, "c");
  machine.Windows.Answers = {MsgBoxAnswer::Ok};
  Press(dialog->Command16, "B");
  EXPECT_EQ(LastBox(), "Attenzione: La copertina 'B' Esiste già, vuoi sovrascrivere il file?");
  EXPECT_EQ(Listed(), (Rows{"a", "b", "c"}));
  EXPECT_EQ(dialog->List1.Text(), "a");
  EXPECT_EQ(state.NomeLayout, "B");
  EXPECT_TRUE(FileHas("b", "Larg1=50"));

  Press(dialog->Command14, "z");
  EXPECT_NE(machine.Windows.Prompts.back().prompt.find("' B '"), std::string::npos);
  EXPECT_EQ(machine.Windows.Prompts.back().defaultText, "a");
  EXPECT_EQ(Listed(), (Rows{"z", "b", "c"}));
  EXPECT_EQ(state.NomeLayout, "z");
  EXPECT_TRUE(FileHas("z", "Larg2=51"));
}

TEST_F(DialogFiles, CancellingLeavesEverythingButTheFlagThatRenameHasCleared) {
  Enter(dialog->Text1, "9");
  machine.Windows.Inputs = {"", "b"};
  Press(dialog->Command16);
  Press(dialog->Command2, MsgBoxAnswer::Cancel);
  Press(dialog->Command1, MsgBoxAnswer::Cancel);
  EXPECT_EQ(state.NumCopertine, 2);
  EXPECT_EQ(state.NomeLayout, "a");
  EXPECT_EQ(state.LayoutModificato, -1);
  machine.Windows.Answers = {MsgBoxAnswer::Yes};
  Press(dialog->Command14, "");
  EXPECT_EQ(state.LayoutModificato, 0);
  EXPECT_TRUE(FileHas("a", "Larg1=50"));
}

TEST_F(DialogFiles, EmptyAndPointedNamesAreLayoutsLikeAnyOther) {
  WriteCovers("", {70});
  WriteCovers(".celato", {80});
  state.NomeLayout.clear();
  Open();
  EXPECT_EQ(Listed(), (Rows{"", ".celato", "a", "b"}));
  EXPECT_EQ(Shown(dialog->Text1), "70");
  Enter(dialog->Text1, "71");
  Press(dialog->Command5);
  EXPECT_TRUE(FileHas("", "Larg1=71"));
  machine.Windows.Answers = {MsgBoxAnswer::Cancel};
  Press(dialog->Command16, ".celato");
  EXPECT_EQ(LastBox(), "Attenzione: La copertina '.celato' Esiste già, vuoi sovrascrivere il file?");
  EXPECT_TRUE(FileHas(".celato", "Larg1=80"));
}

TEST_F(DialogFiles, AClickOnTheSelectedRowIsTheWayBackAfterSaveAs) {
  Press(dialog->Command16, "c");
  Enter(dialog->Text1, "9");
  machine.Windows.Answers = {MsgBoxAnswer::No};
  Select(0);
  EXPECT_EQ(state.NomeLayout, "a");
  EXPECT_EQ(Shown(dialog->Text1), "50");
}

TEST_F(DialogFiles, RefusedRenameAndDeleteTellWhyAndLeaveListFileAndName) {
  Press(dialog->Command14, "b");
  EXPECT_TRUE(LastBox().starts_with("Impossibile rinominare il layout ' a ' in ' b '.\nIl file esiste già"));
  MakeReadOnly(PathOf("a"));
  Press(dialog->Command1, MsgBoxAnswer::Ok);
  EXPECT_TRUE(LastBox().starts_with("Impossibile eliminare il layout ' a '.\nErrore di accesso"));
  EXPECT_EQ(Listed(), (Rows{"a", "b"}));
  EXPECT_EQ(dialog->List1.Text(), "a");
  EXPECT_EQ(state.NomeLayout, "a");
  EXPECT_TRUE(FileHas("b", "Larg1=60"));
}

TEST_F(DialogFiles, DeletingLoadsTheFirstThatIsLeftAndAsksAboutTheDeletedOne) {
  Enter(dialog->Text1, "9");
  machine.Files->Kill(PathOf("a"));
  machine.Windows.Answers = {MsgBoxAnswer::Ok, MsgBoxAnswer::Yes};
  Press(dialog->Command1);
  EXPECT_TRUE(LastBox().starts_with("Il file ' a ' è stato modificato"));
  EXPECT_EQ(Listed(), (Rows{"b"}));
  EXPECT_EQ(Shown(dialog->Text1), "60");
}

TEST_F(DialogFiles, NameThatCannotBeAFileIsSavedNowhereAndTheRestGoesOn) {
  machine.WriteFile("C:\\fuori.mvne", "");
  for (const std::string name : {"CD/DVD", "..\\fuori", "a:b"}) {
    Press(dialog->Command2, name);
    EXPECT_TRUE(machine.Windows.Boxes.empty());
    EXPECT_EQ(dialog->List1.Text(), name);
  }
  EXPECT_EQ(machine.ReadFile("C:\\fuori.mvne"), "");
  EXPECT_EQ(machine.Files->PlainFiles("C:\\Morvane").size(), 2U);
  Select(0);
  Press(dialog->Command14, "..\\altrove");
  EXPECT_TRUE(LastBox().starts_with("Impossibile rinominare il layout"));
  EXPECT_FALSE(machine.Files->FileExists("C:\\altrove.mvne"));
}

}  // namespace
}  // namespace Morvane
