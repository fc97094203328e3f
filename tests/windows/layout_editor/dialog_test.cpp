#include "windows/layout_editor/dialog.h"

#include <QListView>
#include <QTest>

#include "dialog_fixture.h"

namespace Morvane {
namespace {

TEST_F(DialogTest, OpensOnTheFirstFileThenOnTheCurrentOneWhateverItsCase) {
  WriteCovers("dvd", {130});
  WriteCovers("CD", {121, 122});
  machine.WriteFile("C:\\Morvane\\leggimi.txt", "");
  Open();
  EXPECT_EQ(2 * dialog->form.Left() + dialog->form.Width(), machine.TheScreen.Width);
  EXPECT_EQ(state.ElencoFontSize, 8);
  EXPECT_EQ(Listed(), (Rows{"CD", "dvd"}));
  EXPECT_EQ(state.NomeLayout, "CD");
  EXPECT_EQ(Shown(dialog->Text1), "121");
  EXPECT_EQ(dialog->Label4.Caption(), "Ogg.01");
  Select(1);
  Press(dialog->CancelButton);
  EXPECT_EQ(state.NomeLayout, "");
  EXPECT_EQ(state.NumCopertine, 1) << "the layout that the editor loaded stays";

  state.NomeLayout = "DVD";
  Open();
  EXPECT_EQ(dialog->List1.ListIndex(), 1);
  Press(dialog->OKButton);
  EXPECT_EQ(state.NomeLayout, "dvd");
  EXPECT_EQ(state.CopCorrente, 0);
  EXPECT_TRUE(dialog->form.Unloaded());
}

TEST_F(DialogTest, WithoutTheCurrentFileNothingIsOnShowAndEditingWaits) {
  WriteCovers("cd", {121});
  state.NomeLayout = "sparito";
  Open();
  EXPECT_EQ(dialog->List1.ListIndex(), -1);
  const LayoutTables before = state;
  Enter(dialog->Text1, "33");
  Press(dialog->Command7);
  Press(dialog->Command18);
  EXPECT_TRUE(static_cast<const LayoutTables&>(state) == before);
  EXPECT_EQ(state.CopCorrente, 0);
  Press(dialog->Option4);
  EXPECT_EQ(state.CopCorrente, 1) << "the shape options begin with cover 1";
}

TEST_F(DialogTest, YesDiscardsTheChangesJustAsNoDoes) {
  WriteCovers("cd", {121});
  WriteCovers("dvd", {130});
  Open();
  Enter(dialog->Text1, "99");
  EXPECT_EQ(state.LayoutModificato, -1);
  machine.Windows.Answers = {MsgBoxAnswer::Yes};
  Select(1);
  EXPECT_EQ(LastBox(), "Il file ' cd ' è stato modificato, si desidera salvare le modifiche?");
  EXPECT_TRUE(FileHas("cd", "Larg1=121"));
  EXPECT_EQ(Shown(dialog->Text1), "130");
  EXPECT_EQ(state.LayoutModificato, 0);
}

TEST_F(DialogTest, OpenAndADoubleClickGiveUpTheChangesWithoutAQuestion) {
  WriteCovers("cd", {121});
  const auto doubleClick = [this] {
    auto& list = Hand::See<QListView>(dialog->List1);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.currentIndex()).center());
  };
  for (const std::function<void()>& way :
       {std::function<void()>([this] { Press(dialog->OKButton); }), std::function<void()>(doubleClick)}) {
    Open();
    Enter(dialog->Text1, "99");
    way();
    EXPECT_TRUE(dialog->form.Unloaded());
    EXPECT_TRUE(FileHas("cd", "Larg1=121"));
    EXPECT_EQ(state.NomeLayout, "cd");
  }
}

TEST_F(DialogTest, UnreadableFileIsToldOfAndLeavesTheLayoutBeforeIt) {
  WriteLayoutFile("a", {"Pagina=1", "Copertina1=1", "Larg1=7", "Larg2"});
  WriteCovers("b", {121});
  Open();
  ASSERT_EQ(machine.Windows.Boxes.size(), 1U) << "the window opens all the same";
  EXPECT_NE(LastBox().find("\"a\" non è valido alla riga 4"), std::string::npos);
  EXPECT_EQ(state.NomeLayout, "");
  Select(1);
  Press(dialog->Command7);
  machine.Windows.Answers = {MsgBoxAnswer::No};
  Select(0);
  EXPECT_EQ(state.NomeLayout, "b");
  EXPECT_EQ(Shown(dialog->Text1), "122");
  EXPECT_EQ(state.CopLarg[1], 12.2);
  EXPECT_TRUE(dialog->Option1.Value() && dialog->Option3.Value());
  EXPECT_EQ(state.LayoutModificato, 0);
  Press(dialog->Command1, MsgBoxAnswer::Ok);
  EXPECT_EQ(Listed(), (Rows{"b"}));
}

TEST_F(DialogTest, VanishedFileIsSkippedAndALayoutHasOneCoverAtLeast) {
  state.NumCopertine = 0;
  WriteLayoutFile("a", {"Larg1=50"});
  WriteCovers("b", {60});
  Open();
  EXPECT_EQ(state.NumCopertine, 1);
  machine.Files->Kill(PathOf("b"));
  Select(1);
  EXPECT_TRUE(machine.Windows.Boxes.empty());
  EXPECT_EQ(state.NomeLayout, "a");
  EXPECT_EQ(state.CopLarg[1], 5);
}

TEST_F(DialogTest, EmptyFolderOpensAndTakesANewFile) {
  Open();
  EXPECT_TRUE(machine.Windows.Boxes.empty());
  Press(dialog->Command2, "primo");
  EXPECT_EQ(dialog->List1.Text(), "primo");
  Press(dialog->Command1, MsgBoxAnswer::Ok);
  EXPECT_EQ(Listed(), Rows{});
  EXPECT_EQ(machine.Windows.Boxes.size(), 1U);
}

TEST_F(DialogTest, PreviewTurnsWithThePageAndPicksTheLowestCoverByTheLeftButton) {
  WriteCovers("a", {100, 50, 60});
  Open();
  EXPECT_NEAR(dialog->Picture1.Width(), 4155.0 * 210 / 297, 1e-6);
  const auto click = [&](Qt::MouseButton button, double xMm, double yMm) {
    ClickPage(xMm, yMm, button);
    return state.CopCorrente;
  };
  Press(dialog->Command4);
  Enter(dialog->Text4, "60");
  Press(dialog->Command4);
  Enter(dialog->Text4, "90");
  EXPECT_EQ(click(Qt::RightButton, 100, 40), 3);
  EXPECT_EQ(click(Qt::LeftButton, 100, 40), 1);
  EXPECT_EQ(click(Qt::LeftButton, 125, 40), 3);
  EXPECT_EQ(click(Qt::ExtraButton1, 100, 40), 3);
  const double twipsPerMm = dialog->Picture1.Width() / 210;
  hand->Point(dialog->Picture1, 100 * twipsPerMm, 40 * twipsPerMm);
  EXPECT_EQ(dialog->Picture1.ToolTipText(), "Copertina n.1/3 clicca col mouse per modificare i parametri");
  hand->Point(dialog->Picture1, 0, 0);
  EXPECT_EQ(dialog->Picture1.ToolTipText(), "Scegli la copertina da modificare quindi cliccala.");

  Press(dialog->Option2);
  EXPECT_EQ(dialog->Picture1.Width(), 4155);
  EXPECT_NEAR(dialog->Picture1.Height(), 4155.0 * 210 / 297, 1e-6);
}

}  // namespace
}  // namespace Morvane
