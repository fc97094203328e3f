#include <QApplication>
#include <random>

#include "core/val.h"
#include "dialog_fixture.h"

namespace Morvane {
namespace {

constexpr int kActions = 1000;

class DialogSession : public DialogTest, public ::testing::WithParamInterface<std::pair<unsigned, char>> {
 protected:
  DialogSession() : random(GetParam().first) {
    state.decimalSeparator = GetParam().second;
    WriteLayoutFile("a", {"Pagina=2", "Copertina2=5", "Larg2=40.5", "Copertina1=1", "Larg1=80", "Alte1=90"});
    WriteLayoutFile("b", {"Pagina=1", "Copertina1=0", "Copertina2=", "Copertina3=1", "Alte3=-2"});
    WriteLayoutFile("c", {"Copertina1=0", "Distx1=25.4", "Larg1=121"});
    machine.Windows.AfterBox = [this] {
      const bool yesOrNo = machine.Windows.Boxes.back().buttons == MsgBoxButtons::YesNo;
      const bool first = Pick(3) != 0;
      machine.Windows.Answers = {yesOrNo ? (first ? MsgBoxAnswer::Yes : MsgBoxAnswer::No)
                                         : (first ? MsgBoxAnswer::Ok : MsgBoxAnswer::Cancel)};
    };
    Open();
  }

  int Pick(std::size_t count) {
    return std::uniform_int_distribution<int>(0, static_cast<int>(count) - 1)(random);
  }

  void DoAnything() {
    machine.Windows.Inputs = {std::string(1, static_cast<char>('a' + Pick(6)))};
    const std::vector<Control*> controls = dialog->form.AllControls();
    Control& control = *controls[static_cast<std::size_t>(Pick(controls.size()))];
    const bool leaves = &control == &dialog->OKButton || &control == &dialog->CancelButton;
    const std::string texts[] = {"12", "12.5", "7,25", "abc", "-3", "1.99", "250", "1e2", " 4 0", ""};
    if (auto* const box = dynamic_cast<TextBox*>(&control)) {
      hand->Type(*box, texts[Pick(std::size(texts))]);
    } else if (Pick(6) == 0) {
      hand->Key(std::array{Qt::Key_Tab, Qt::Key_Down, Qt::Key_Up}[static_cast<std::size_t>(Pick(3))]);
    } else if (control.Visible() && !leaves) {
      hand->Click(control, Pick(100) * control.Width() / 100, Pick(100) * control.Height() / 100);
    }
  }

  // The keyboard leaves the boxes: what is typed counts.
  std::string Saved() {
    Press(dialog->Command5);
    return machine.ReadFile(PathOf(state.NomeLayout));
  }
  // As it is read from its file.
  std::string SavedOnceMore() {
    Select(dialog->List1.ListIndex());
    return Saved();
  }

  std::mt19937 random;
};

TEST_P(DialogSession, WhateverIsDoneTheRowShowsACoverAndTheFileHoldsWhatIsShown) {
  for (int action = 0; action < kActions; ++action) {
    DoAnything();
    const int n = state.CopCorrente;
    ASSERT_TRUE(n >= 1 && n <= state.NumCopertine && state.NumCopertine <= 100) << action;
    if (action % 10 != 0) continue;
    const std::string saved = Saved();
    ASSERT_EQ(state.LayoutModificato, 0);
    if (dialog->List1.Text() != state.NomeLayout) continue;
    // What was typed becomes a number at the first reading, and with a decimal comma a whole one at the next.
    SavedOnceMore();
    const std::string settled = SavedOnceMore();
    ASSERT_EQ(std::count(saved.begin(), saved.end(), '='), std::count(settled.begin(), settled.end(), '='));
    ASSERT_EQ(SavedOnceMore(), settled) << action;
    ASSERT_NEAR(Val(Shown(dialog->Text1)) / 10, state.CopLarg[1], 0.1) << action;
  }
  for (const std::string& name : Listed()) EXPECT_TRUE(machine.Files->FileExists(PathOf(name))) << name;
}

INSTANTIATE_TEST_SUITE_P(Seeds, DialogSession, ::testing::Values(std::pair(1U, '.'), std::pair(2U, ',')));

}  // namespace
}  // namespace Morvane
