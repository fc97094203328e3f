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

TEST_F(DialogEditing, EnterStoresWhatTheBoxHoldsAndEscLeaves) {
  dialog->Text5.SetText("30");
  EXPECT_TRUE(dialog->Text5.PerformKeyDown(13));
  EXPECT_EQ(state.CopDisty[1], 30.0 / 10 / 2.54);
  EXPECT_EQ(state.LayoutModificato, -1);
  EXPECT_FALSE(dialog->form.Unloaded());
  dialog->Text5.PerformKeyDown(27);
  EXPECT_TRUE(dialog->form.Unloaded());
}

TEST_F(DialogEditing, HundredCoversAreTheLimitAndOneTheLeast) {
  while (state.NumCopertine < 100) dialog->Command17.PerformClick();
  EXPECT_EQ(dialog->Label4.Caption(), "Ogg.00");
  Type(dialog->Text1, "77.25");
  dialog->Text1.SetText("abc");
  Press(dialog->Command5);
  EXPECT_TRUE(FileHas("a", "Larg100=77.25")) << "cover 100 comes from the tables";
  Press(dialog->Command17);
  EXPECT_EQ(LastBox(), "È stato raggiunto il numero massimo di 100 copertine.");
  while (state.NumCopertine > 1) dialog->Command18.PerformClick();
  Press(dialog->Command18);
  EXPECT_EQ(LastBox(), "Il layout di un file di copertine deve contenerne almeno una.");
  EXPECT_EQ(state.NumCopertine, 1);
}

}  // namespace
}  // namespace Morvane
