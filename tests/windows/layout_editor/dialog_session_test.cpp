#include <QApplication>
#include <QRadioButton>
#include <random>

#include "dialog_fixture.h"
#include "editor_model.h"

namespace Morvane {
namespace {

constexpr int kActions = 2000;
const std::string kTexts[] = {"12", "12.5", "7,25", "abc", "-3", "0", "1.99", "2", "250", "1e2", " 4 0", ""};
const std::string kNames[] = {"a", "b", "c", "d", "e", "f"};

// Does the same to the window and to the model of its rules.
class DialogSession : public DialogTest, public ::testing::WithParamInterface<std::pair<unsigned, char>> {
 protected:
  DialogSession() : random(GetParam().first) {
    state.decimalSeparator = model.separator = GetParam().second;
    state.NumCopertine = model.tables.NumCopertine = 2;
    model.files = {
        {"a", {"Pagina=2", "Copertina2=5", "Larg2=40.5", "Copertina1=1", "Larg1=80", "Alte1=90"}},
        {"b", {"Pagina=1", "Copertina1=0", "Copertina2=", "Copertina3=1", "Disty3=100", "Alte3=-2"}},
        {"c", {"Copertina1=0", "Distx1=25.4", "Larg1=121"}}};
    for (const auto& [name, lines] : model.files) WriteLayoutFile(name, lines);
    Open();
    model.Open("a");
  }

  TextBox& Box(std::size_t measure) {
    return *std::array{&dialog->Text1, &dialog->Text2, &dialog->Text4, &dialog->Text5}[measure];
  }
  // Before a click on another control takes effect, a box that has the keyboard loses it.
  template <typename... Extra>
  void PressAway(const Control& control, Extra... extra) {
    model.LeaveBox();
    Press(control, extra...);
  }

  int Pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }
  MsgBoxAnswer YesOrNo() { return Pick(2) == 0 ? MsgBoxAnswer::Yes : MsgBoxAnswer::No; }
  void ExpectAboutChanges() {
    if (model.modified) machine.Windows.Answers.push_back(YesOrNo());
  }

  void EditSomething() {
    const auto measure = static_cast<std::size_t>(Pick(4));
    CommandButton* const down[] = {&dialog->Command6, &dialog->Command8, &dialog->Command10,
                                   &dialog->Command12};
    CommandButton* const up[] = {&dialog->Command7, &dialog->Command9, &dialog->Command11,
                                 &dialog->Command13};
    OptionButton* const options[] = {&dialog->Option1, &dialog->Option2, &dialog->Option3, &dialog->Option4};
    const int option = Pick(4);
    switch (Pick(11)) {
      case 0:
      case 1:
        PressAway(*down[measure]);
        return model.Step(measure, -1);
      case 2:
        PressAway(*up[measure]);
        return model.Step(measure, 1);
      case 3: {
        const std::string& text = kTexts[Pick(std::size(kTexts))];
        hand->Type(Box(measure), text);
        return model.Type(measure, text);
      }
      case 4:
        PressAway(*options[option]);
        return option < 2 ? model.ChoosePage(option) : model.ChooseShape(option - 2);
      case 5:
        PressAway(dialog->Command17);
        return model.Add();
      case 6:
        PressAway(dialog->Command18);
        return model.Remove();
      case 7:
        PressAway(option == 0 ? dialog->Command3 : dialog->Command4);
        return model.Move(option == 0 ? -1 : 1);
      case 8:
        return PressKey();
      case 9:
        return WalkOn();
      default:
        return ClickPreview();
    }
  }

  // Enter takes a measure over; elsewhere it presses a button, and Esc leaves the window: the next one opens
  // on the layout that is the current one then.
  void PressKey() {
    if (model.focused) {
      hand->Key(Qt::Key_Enter);
      return model.Leave(*model.focused, model.boxes[*model.focused]);
    }
    if (Pick(4) != 0 || !model.files.contains(model.opened)) return;
    hand->Key(Qt::Key_Escape);
    ASSERT_TRUE(dialog->form.Unloaded());
    Open();
    model.Open(model.opened);
  }

  // Tab, and the arrow keys where the list has the keyboard.
  void WalkOn() {
    const bool inList = QApplication::focusWidget() == &Hand::See(dialog->List1);
    const int row = dialog->List1.ListIndex() + 1;
    if (inList && row < dialog->List1.ListCount()) {
      ExpectAboutChanges();
      hand->Key(Qt::Key_Down);
      return model.Select(dialog->List1.List(row));
    }
    hand->Key(Qt::Key_Tab);
    model.LeaveBox();
    for (std::size_t measure = 0; measure < 4; ++measure) {
      if (QApplication::focusWidget() == &Hand::See(Box(measure))) model.focused = measure;
    }
  }

  void ClickPreview() {
    std::uniform_real_distribution<double> part(0, 1);
    const int x = static_cast<int>(part(random) * dialog->Picture1.Width() / 15);
    const int y = static_cast<int>(part(random) * dialog->Picture1.Height() / 15);
    hand->Click(dialog->Picture1, x * 15, y * 15);
    model.LeaveBox();
    const double sides[] = {11905.5 / 1440, 16837.8 / 1440};
    const bool landscape = model.tables.Orientamento == 1;
    model.Click(x * 15 / dialog->Picture1.Width() * sides[landscape],
                y * 15 / dialog->Picture1.Height() * sides[!landscape]);
  }

  void UseAFile() {
    const std::string name = kNames[Pick(std::size(kNames))];
    const bool exists = model.files.count(name) != 0;
    switch (Pick(5)) {
      case 0:
        return SelectAny();
      case 1:
        PressAway(dialog->Command5);
        return model.Save();
      case 2:
        if (exists) machine.Windows.Answers.push_back(MsgBoxAnswer::Ok);
        PressAway(dialog->Command16, name);
        model.name = name;
        return model.Save();
      case 3:
        if (exists) machine.Windows.Answers.push_back(MsgBoxAnswer::Ok);
        PressAway(dialog->Command2, name);
        return model.New(name);
      default:
        return exists && name != model.selected ? DeleteSelected() : RenameTo(name);
    }
  }

  void SelectAny() {
    const int row = Pick(dialog->List1.ListCount());
    const std::string entry = dialog->List1.List(row);
    model.LeaveBox();
    ExpectAboutChanges();
    Select(row);
    model.Select(entry);
  }
  void RenameTo(const std::string& name) {
    model.LeaveBox();
    ExpectAboutChanges();
    Press(dialog->Command14, name);
    model.Rename(name);
  }
  void DeleteSelected() {
    machine.Windows.Answers.push_back(MsgBoxAnswer::Ok);
    model.LeaveBox();
    ExpectAboutChanges();
    Press(dialog->Command1);
    model.files.erase(model.selected);
    model.Select(dialog->List1.List(0));
  }

  void CompareControls() {
    ASSERT_TRUE(static_cast<const LayoutTables&>(state) == model.tables);
    ASSERT_EQ(state.CopCorrente, model.onShow);
    ASSERT_EQ(state.LayoutModificato, model.modified ? -1 : 0);
    ASSERT_EQ(state.NomeLayout, model.name);
    ASSERT_EQ(dialog->List1.Text(), model.selected);
    ASSERT_EQ(dialog->Label4.Caption(), model.caption);
    const std::array<std::string, 4> boxes = {Shown(dialog->Text1), Shown(dialog->Text2),
                                              Shown(dialog->Text4), Shown(dialog->Text5)};
    ASSERT_EQ(boxes, model.boxes);
    ASSERT_EQ(Hand::See<QRadioButton>(dialog->Option2).isChecked(), model.page == 1);
    ASSERT_EQ(Hand::See<QRadioButton>(dialog->Option4).isChecked(), model.shape == 1);
    ASSERT_TRUE(machine.Windows.Answers.empty());
  }
  void CompareFiles() {
    Rows listed = Listed();
    std::sort(listed.begin(), listed.end());
    Rows names;
    for (const auto& [name, lines] : model.files) {
      names.push_back(name);
      std::string text;
      for (const std::string& line : lines) text += line + "\r\n";
      ASSERT_TRUE(machine.ReadFile(PathOf(name)).ends_with(text)) << name;
    }
    ASSERT_EQ(listed, names);
    ASSERT_EQ(machine.Files->PlainFiles("C:\\Morvane").size(), names.size());
  }

  std::mt19937 random;
  EditorModel model;
};

TEST_P(DialogSession, TablesControlsListAndFilesFollowTheRulesAfterEachAction) {
  for (int action = 0; action < kActions; ++action) {
    SCOPED_TRACE(action);
    const bool file = Pick(25) == 0;
    file ? UseAFile() : EditSomething();
    CompareControls();
    if (file) CompareFiles();
    if (HasFatalFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, DialogSession, ::testing::Values(std::pair(1U, '.'), std::pair(2U, ',')));

}  // namespace
}  // namespace Morvane
