#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QLineEdit>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <memory>
#include <random>
#include <thread>

#include "core/number_text.h"
#include "tests/hand/hand.h"
#include "tests/support/test_machine.h"
#include "windows/contents/frm_preview.h"
#include "windows/image_picker/frm_about.h"
#include "windows/image_picker/image_list.h"
#include "windows/layout_editor/dialog.h"

namespace Morvane {
namespace {

using testing::_;
using testing::ElementsAre;
using testing::Pair;

// The first text of each column.
std::vector<std::string> ColumnStarts(const DrawingList& drawing) {
  std::vector<std::string> firsts;
  double left = 0;
  for (const Shape& shape : drawing) {
    const auto* text = std::get_if<TextShape>(&shape);
    if (text == nullptr || text->left == left) continue;
    left = text->left;
    firsts.push_back(text->text);
  }
  return firsts;
}

class ContentsWindow : public ::testing::Test {
 protected:
  ContentsWindow() { hand.Show(window.form); }

  TestMachine machine;
  AppState state;
  Hand hand{machine};
  FrmPreview window{state, hand.platform, {[] {}, [] { return std::string("ok"); }}};
};

TEST_F(ContentsWindow, ColumnsBreakAsOnPaperAtAnyFontSizeInWindowsOfAnySizeOnAnySheet) {
  for (int i = 0; i < 1500; ++i) window.List1.Add((i % 9 == 0 ? "(" : "") + std::to_string(i));
  std::vector<float> sizes = {2.8F, 10.3F, 20.6F};  // a column is full to 0.003 mm
  for (float size = 2; size <= 25; ++size) sizes.push_back(size);
  for (const SheetSize& sheet : {SheetSize{11905.5, 16837.8}, {12240, 15840}}) {
    machine.Device.Sheet = sheet;
    for (const double height : {6750.0, 9876.0, 32000.0}) {
      Hand::Resize(window.form, height * 4 / 3, height);
      Hand::Press(window.Option1[2]);
      for (const float size : sizes) {
        state.ElencoFontSize = size;
        state.ElencoFontItalic = static_cast<std::int16_t>(1 - state.ElencoFontItalic);
        window.AggiornaAnteprima();
        machine.Device.Answers.push_back({true, 1});
        Hand::Press(window.Command3);
        ASSERT_EQ(ColumnStarts(window.Picture1.Surface.Drawing()),
                  ColumnStarts(machine.Device.Jobs.back().page))
            << size << " points, " << height << " twips";
      }
    }
  }
}

TEST_F(ContentsWindow, SheetThatFailsIsToldOnceForEachCause) {
  for (const char* const cause : {"Una", "Altra"}) {
    machine.Device.BeforeCall = [=](const std::string&, ErrorNumber number) {
      throw RuntimeError(number, cause);
    };
    for (const int option : {1, 2}) Hand::Press(window.Option1[static_cast<std::size_t>(option)]);
  }
  EXPECT_THAT(hand.windows.Read, ElementsAre(Pair(_, "Una"), Pair(_, "Altra")));
}

// Made too small by its edge, on a screen with room for it.
TEST_F(ContentsWindow, SnapsBackWithItsWholeContent) {
  Hand::Resize(window.form, 3000, 2000);
  EXPECT_EQ(Hand::See(window.form).size(), QSize(550, 450));
  EXPECT_EQ(Hand::See(window.Picture1).visibleRegion().boundingRect(), QRect(0, 0, 292, 413));
}

TEST(CleanText, BlanksLineBreaksInTheCallersOwnText) {
  std::string text = " C:\\Foto\x1B a\r\n";
  EXPECT_EQ(toglivbcrlf(text), "C:\\Foto  a");
  EXPECT_EQ(text, " C:\\Foto  a  ");
}

TEST(FolderTree, OnASlowDiskAllFoldersAreSeenBeforeEachIsLookedInto) {
  TestMachine machine;
  for (const char* parent : {"a", "b", "c", "d", "e", "f"})
    machine.MakeFolder("C:\\Molte\\" + std::string(parent) + "\\Dentro");
  machine.Files->BeforeCall = [](const std::string& call, const std::string& path) {
    if (call == "FirstSubFolder" && path.size() > 4)
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
  };
  AppState state;
  frmAbout picker(state, machine.platform, [] {});
  picker.form.EnsureLoaded();
  while (picker.TimerCartelle.Running()) picker.TimerCartelle.Tick();
  TreeNode& folder = *picker.tvwdirtree.Find("C:\\Molte");
  picker.tvwdirtree.UserExpands(folder);
  const auto& nodes = folder.Children();
  const auto isRead = [](const TreeNode* node) { return node->Children().size() == 1; };
  EXPECT_EQ(nodes.size(), 6);
  EXPECT_FALSE(isRead(nodes.back()));
  picker.tvwdirtree.UserCollapses(folder);
  picker.tvwdirtree.UserExpands(folder);
  while (picker.TimerCartelle.Running()) picker.TimerCartelle.Tick();
  EXPECT_TRUE(std::all_of(nodes.begin(), nodes.end(), isRead));
}

constexpr int kActions = 1000;

class DialogSession : public ::testing::TestWithParam<std::pair<unsigned, char>> {
 protected:
  DialogSession() : random(GetParam().first) {
    state.MaxCopertine = 100;
    state.NumCopertine = 2;
    state.decimalSeparator = GetParam().second;
    machine.WriteFile(PathOf("a"), "Pagina=2\rCopertina2=5\rLarg2=40.5\rCopertina1=1\rLarg1=80\rAlte1=90\r");
    machine.WriteFile(PathOf("b"), "Pagina=1\rCopertina1=0\rCopertina2=\rCopertina3=1\rAlte3=-2\r");
    machine.WriteFile(PathOf("c"), "Copertina1=0\rDistx1=25.4\rLarg1=121\r");
    machine.Windows.AfterBox = [this] {
      const bool yesOrNo = machine.Windows.Boxes.back().buttons == MsgBoxButtons::YesNo;
      const bool first = Pick(3) != 0;
      machine.Windows.Answers = {yesOrNo ? (first ? MsgBoxAnswer::Yes : MsgBoxAnswer::No)
                                         : (first ? MsgBoxAnswer::Ok : MsgBoxAnswer::Cancel)};
    };
    hand.Show(dialog.form);
  }

  static std::string PathOf(const std::string& name) { return "C:\\Morvane\\" + name + ".mvne"; }

  int Pick(std::size_t count) {
    return std::uniform_int_distribution<int>(0, static_cast<int>(count) - 1)(random);
  }

  void DoAnything() {
    machine.Windows.Inputs = {std::string(1, static_cast<char>('a' + Pick(6)))};
    const std::vector<Control*> controls = dialog.form.AllControls();
    Control& control = *controls[static_cast<std::size_t>(Pick(controls.size()))];
    const bool leaves = &control == &dialog.OKButton || &control == &dialog.CancelButton;
    const std::string texts[] = {"12", "12.5", "7,25", "abc", "-3", "1.99", "250", "1e2", " 4 0", ""};
    if (auto* const box = dynamic_cast<TextBox*>(&control)) {
      hand.Type(*box, texts[Pick(std::size(texts))]);
    } else if (Pick(6) == 0) {
      hand.Key(std::array{Qt::Key_Tab, Qt::Key_Down, Qt::Key_Up}[static_cast<std::size_t>(Pick(3))]);
    } else if (control.Visible() && !leaves) {
      hand.Click(control, Pick(100) * control.Width() / 100, Pick(100) * control.Height() / 100);
    }
  }

  // The keyboard leaves the boxes: what is typed counts.
  std::string Saved() {
    Hand::Press(dialog.Command5);
    return machine.Files->ReadBytes(PathOf(state.NomeLayout));
  }
  // As it is read from its file.
  std::string SavedOnceMore() {
    Hand::ClickRow(dialog.List1, Hand::Row(dialog.List1, dialog.List1.Text()));
    return Saved();
  }

  TestMachine machine;
  AppState state;
  CoverSlots slots;
  std::minstd_rand rnd;
  Hand hand{machine};
  Dialog dialog{state, hand.platform, slots, rnd};
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
    if (dialog.List1.Text() != state.NomeLayout) continue;
    // What was typed becomes a number at the first reading, and with a decimal comma a whole one at the next.
    SavedOnceMore();
    const std::string settled = SavedOnceMore();
    ASSERT_EQ(std::count(saved.begin(), saved.end(), '='), std::count(settled.begin(), settled.end(), '='));
    ASSERT_EQ(SavedOnceMore(), settled) << action;
    ASSERT_NEAR(Val(Hand::See<QLineEdit>(dialog.Text1).text().toStdString()) / 10, state.CopLarg[1], 0.1)
        << action;
  }
  for (const std::string& name : Hand::Rows(dialog.List1))
    EXPECT_TRUE(machine.Files->FileExists(PathOf(name))) << name;
}

INSTANTIATE_TEST_SUITE_P(Seeds, DialogSession, ::testing::Values(std::pair(1U, '.'), std::pair(2U, ',')));

}  // namespace
}  // namespace Morvane
