#include "dialog_fixture.h"

namespace Morvane {
namespace {

class DialogEditing : public DialogTest {
 protected:
  DialogEditing() {
    WriteCovers("a", {50, 51, 52, 53, 54});
    Open();
  }
};

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
  while (state.NumCopertine < 100) Press(dialog->Command17);
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
