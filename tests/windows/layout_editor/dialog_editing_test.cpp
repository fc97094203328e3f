#include <set>

#include "dialog_fixture.h"

namespace Morvane {
namespace {

class DialogEditing : public DialogTest {
 protected:
  DialogEditing() {
    WriteCovers("a", {50, 51, 52, 53, 54});
    state.SpessoreBordo = 1;
    Open();
  }
  QImage Preview() const { return Hand::See(dialog->Picture1).grab().toImage(); }
};

TEST_F(DialogEditing, EachButtonChangesItsLineAndTheDrawingAndAllButOneAreAskedAbout) {
  struct Edit {
    const Control& (*button)(const Dialog& dialog);
    const char* line;
    bool asked;
  };
  const Edit edits[] = {
      {[](const Dialog& d) -> const Control& { return d.Command6; }, "Larg1=49", true},
      {[](const Dialog& d) -> const Control& { return d.Command7; }, "Larg1=51", true},
      {[](const Dialog& d) -> const Control& { return d.Command8; }, "Alte1=59", true},
      {[](const Dialog& d) -> const Control& { return d.Command9; }, "Alte1=61", true},
      {[](const Dialog& d) -> const Control& { return d.Command10; }, "Distx1=19", false},
      {[](const Dialog& d) -> const Control& { return d.Command11; }, "Distx1=21", true},
      {[](const Dialog& d) -> const Control& { return d.Command12; }, "Disty1=19", true},
      {[](const Dialog& d) -> const Control& { return d.Command13; }, "Disty1=21", true},
      {[](const Dialog& d) -> const Control& { return d.Option2; }, "Pagina=1", true},
      {[](const Dialog& d) -> const Control& { return d.Option4; }, "Copertina1=1", true},
      {[](const Dialog& d) -> const Control& { return d.Command17; }, "Copertina6=", true},
      {[](const Dialog& d) -> const Control& { return d.Command18; }, "Larg1=51", true},
  };
  for (const Edit& edit : edits) {
    WriteCovers("a", {50, 51, 52, 53, 54});
    Open();
    const QImage before = Preview();
    Press(edit.button(*dialog));
    EXPECT_EQ(state.LayoutModificato, edit.asked ? -1 : 0) << edit.line;
    EXPECT_NE(Preview(), before) << edit.line;
    Press(dialog->Command5);
    EXPECT_EQ(state.LayoutModificato, 0);
    EXPECT_TRUE(FileHas("a", edit.line)) << edit.line;
  }
}

TEST_F(DialogEditing, TextIsSavedAsTypedAndComesBackAsTheNumberItBeginsWith) {
  struct Case {
    char separator;
    const char* typed;
    const char* shown;
    const char* down;  // after a step
  };
  for (const Case& text : {Case{'.', "12.5", "12.5", "11.5"},
                           {'.', "7,25", "7", "6"},
                           {'.', " 4 0", "40", "39"},
                           {'.', "1e2", "100", "99"},
                           {'.', "2.5", "2.5", "1.5"},
                           {'.', "2", "2", "1"},
                           {'.', "1.99", "1.99", "1.99"},
                           {'.', "abc", "0", "0"},
                           {'.', "-3", "-3", "-3"},
                           {',', "12.5", "12,5", "11"}}) {
    state.decimalSeparator = text.separator;
    for (TextBox* const box : {&dialog->Text1, &dialog->Text2, &dialog->Text4, &dialog->Text5}) {
      Enter(*box, text.typed);
      Press(dialog->Command5);
      EXPECT_NE(machine.ReadFile(PathOf("a")).find("1=" + std::string(text.typed) + "\r\n"),
                std::string::npos);
      Press(dialog->Command4);
      Press(dialog->Command3);
      EXPECT_EQ(Shown(*box), text.shown) << text.typed;
    }
    EXPECT_EQ(state.LayoutModificato, 0) << "a number that stays as it is changes nothing";
    const std::string comesTo = text.down;
    for (const Control* down : {&dialog->Command6, &dialog->Command8, &dialog->Command10, &dialog->Command12})
      Press(*down);
    for (TextBox* const box : {&dialog->Text1, &dialog->Text2, &dialog->Text4, &dialog->Text5})
      EXPECT_EQ(Shown(*box), comesTo) << text.typed;
    EXPECT_EQ(state.LayoutModificato, comesTo == text.shown ? 0 : -1) << text.typed;
    Press(dialog->Command5);
  }
}

TEST_F(DialogEditing, CoversCloseUpBehindARemovedOneAndANewOneHasTheShapeOfTheLast) {
  Press(dialog->Command4);
  Press(dialog->Command4);
  Press(dialog->Command18);
  EXPECT_EQ(dialog->Label4.Caption(), "Ogg.01");
  Press(dialog->Command3);
  for (const int cover : {1, 2, 4, 5, 5}) {
    EXPECT_EQ(Shown(dialog->Text1), std::to_string(49 + cover));
    EXPECT_EQ(Shown(dialog->Text2), std::to_string(59 + cover));
    EXPECT_EQ(Shown(dialog->Text4), std::to_string(19 + cover));
    EXPECT_EQ(Shown(dialog->Text5), std::to_string(18 + 2 * cover));
    Press(dialog->Command4);
  }
  Press(dialog->Option4);
  Press(dialog->Command18);
  for (int cover = 4; cover <= 5; ++cover) {
    Press(dialog->Command17);
    EXPECT_EQ(dialog->Label4.Caption(), "Ogg.0" + std::to_string(cover));
    EXPECT_EQ(dialog->Option4.Value(), cover == 4);
    EXPECT_EQ(Shown(dialog->Text1) + Shown(dialog->Text2), "5050");
  }
}

TEST_F(DialogEditing, EnterTakesTheMeasureOverAndEscLeavesTheWindow) {
  hand->Type(dialog->Text5, "30");
  hand->Key(Qt::Key_Return);
  EXPECT_EQ(state.CopDisty[1], 30.0 / 10 / 2.54);
  EXPECT_EQ(state.LayoutModificato, -1);
  for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier}) {
    hand->Key(Qt::Key_Escape, modifier);
    hand->Key(Qt::Key_Return, modifier);
  }
  hand->HoldDown(Qt::Key_Escape);
  EXPECT_FALSE(dialog->form.Unloaded());
  hand->Key(Qt::Key_Escape);
  EXPECT_TRUE(dialog->form.Unloaded());
  EXPECT_EQ(state.NomeLayout, "") << "given up";
}

TEST_F(DialogEditing, AClickIntoThePreviewTakesTheTypedNumberOverFirst) {
  Press(dialog->Command4);
  Enter(dialog->Text4, "100");
  hand->Type(dialog->Text1, "93.7");
  ClickPage(30, 30);
  EXPECT_EQ(state.CopCorrente, 1);
  EXPECT_EQ(Shown(dialog->Text1), "50");
  EXPECT_EQ(state.CopLarg[2], 93.7 / 10);
  hand->Type(dialog->Text1, "12");
  ClickPage(5, 5);
  EXPECT_EQ(state.CopLarg[1], 1.2) << "outside all covers, too";
}

TEST_F(DialogEditing, HundredCoversAreTheLimitAndOneTheLeast) {
  std::set<int> lefts;
  std::set<int> tops;
  while (state.NumCopertine < 100) {
    Press(dialog->Command17);
    lefts.insert(std::stoi(Shown(dialog->Text4)));
    tops.insert(std::stoi(Shown(dialog->Text5)));
  }
  EXPECT_TRUE(*lefts.begin() == 25 && *lefts.rbegin() == 54 && lefts.size() > 20) << "new ones lie about";
  EXPECT_TRUE(*tops.begin() == 155 && *tops.rbegin() == 184 && tops.size() > 20);
  EXPECT_EQ(dialog->Label4.Caption(), "Ogg.00");
  Enter(dialog->Text1, "77.25");
  hand->Type(dialog->Text1, "77.25 e non altro");
  Press(dialog->Command5);
  EXPECT_TRUE(FileHas("a", "Larg100=77.25")) << "cover 100 comes from the tables";
  Press(dialog->Command17);
  EXPECT_EQ(LastBox(), "È stato raggiunto il numero massimo di 100 copertine.");
  while (state.NumCopertine > 1) Press(dialog->Command18);
  Press(dialog->Command18);
  EXPECT_EQ(LastBox(), "Il layout di un file di copertine deve contenerne almeno una.");
  EXPECT_EQ(state.NumCopertine, 1);
}

}  // namespace
}  // namespace Morvane
