#include "windows/contents/frm_preview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/hand/hand.h"

namespace Morvane {
namespace {

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

  bool Shows(const std::string& text) const {
    for (const Shape& shape : window.Picture1.Surface.Drawing()) {
      const auto* drawn = std::get_if<TextShape>(&shape);
      if (drawn != nullptr && drawn->text == text) return true;
    }
    return false;
  }
  void Read(const std::string& folder) {
    machine.Windows.Folders.push_back(folder);
    Hand::Press(window.Command2);
  }
  void Type(const std::string& title) { Hand::Type(window.Text1, title); }
  void Print(bool accepted) {
    machine.Device.Answers.push_back({accepted, 3});
    Hand::Press(window.Command3);
  }

  TestMachine machine;
  AppState state;
  std::function<void()> chooseFont;
  Hand hand{machine};
  FrmPreview window{state, hand.platform, {[&] { chooseFont(); }, [] { return std::string("ok"); }}};
};

TEST_F(ContentsWindow, ColumnsSurviveEverythingButAResizeAndAScanAndEachChangeIsShownAtOnce) {
  for (int i = 0; i < 300; ++i) window.List1.Add(std::to_string(i));
  state.ElencoFontSize = 20;
  const auto firstRow = [&] { return ColumnStarts(window.Picture1.Surface.Drawing()); };
  Type("Altro");
  const auto two = firstRow();
  EXPECT_EQ(two[0], "Altro");
  for (int columns = 3; columns <= 7; ++columns) {
    const auto before = firstRow();
    Hand::Press(window.Option1[static_cast<std::size_t>(columns - 2)]);
    EXPECT_EQ(state.ElencoColonne, columns);
    EXPECT_NE(firstRow(), before);
  }
  const auto seven = firstRow();
  Type("Altro");
  Hand::Press(window.Check1);
  EXPECT_EQ(firstRow(), seven);
  chooseFont = [&] { state.ElencoFontSize = 12; };
  Hand::Press(window.Command4);
  EXPECT_NE(firstRow(), seven);
  EXPECT_EQ(state.ElencoColonne, 7);
  state.ElencoFontSize = 20;
  Hand::Resize(window.form, 9000, 8000);
  EXPECT_EQ(firstRow(), two);
  EXPECT_TRUE(window.Option1[0].Value());
  Hand::Press(window.Option1[3]);
  machine.MakeFolder("C:\\R");
  Read("C:\\R");
  EXPECT_EQ(state.ElencoColonne, 2);
  EXPECT_FALSE(window.Option1[3].Value());
}

TEST_F(ContentsWindow, SmallWindowSnapsBackWhereItStandsAndLogoFollowsTheEdge) {
  Hand::Move(window.form, 450, 300);
  Hand::Resize(window.form, 3000, 2000);
  EXPECT_EQ(Hand::See(window.form).pos(), QPoint(30, 20));
  EXPECT_EQ(Hand::See(window.form).size(), QSize(8250 / 15, 6750 / 15));
  EXPECT_EQ(window.Picture2.Left(), 8250 - 1800 - 100);
  EXPECT_DOUBLE_EQ(window.Picture1.Height(), 6750 - 60 - 500);
}

TEST_F(ContentsWindow, ReadingShowsTheListAfterAFolderOverTheLimitTooAndPathsOnDemand) {
  machine.WriteFile("C:\\R\\A\\a.txt", "");
  state.ElencoRighe = 1001;
  std::filesystem::current_path(machine.Root.Path() + "/R");
  Read("C:\\R");
  EXPECT_EQ(std::filesystem::current_path(), machine.Root.Path() + "/Morvane") << "the disc can be taken out";
  EXPECT_TRUE(Shows("(C:\\R\\A)"));
  EXPECT_TRUE(Shows("a.txt"));
  Hand::Press(window.Check1);
  EXPECT_TRUE(Shows("C:\\R\\A\\a.txt"));
}

TEST_F(ContentsWindow, FolderThatCannotBeReadIsToldAndTheNextScanWorks) {
  Read("C:\\Manca");
  ASSERT_EQ(machine.Windows.Boxes.size(), 1U);
  EXPECT_THAT(machine.Windows.Boxes[0].text, ::testing::HasSubstr("C:\\Manca"));
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
  machine.WriteFile("C:\\R\\r.txt", "");
  Read("C:\\R");
  EXPECT_TRUE(Shows("r.txt"));
}

TEST_F(ContentsWindow, TitleThatFitsNoSizeIsToldOnceAndCanBeShortened) {
  Type(std::string(300, 'x'));
  Hand::Key(Qt::Key_Backspace);
  EXPECT_EQ(machine.Windows.Boxes.size(), 1U);
  EXPECT_EQ(window.Text1.Text().size(), 299U);
  Type("breve");
  EXPECT_TRUE(Shows("breve"));
  Type(std::string(300, 'x'));
  EXPECT_EQ(machine.Windows.Boxes.size(), 2U);
}

TEST_F(ContentsWindow, CancelledDialogPrintsAllTheSameAndOnce) {
  Print(false);
  ASSERT_EQ(machine.Device.Jobs.size(), 1U);
  EXPECT_EQ(machine.Device.Jobs[0].title, "Titolo CD");
  Print(true);
  EXPECT_EQ(machine.Device.Jobs.size(), 4U) << "three copies";
  Type("");
  Print(false);
  EXPECT_EQ(machine.Device.Jobs.back().title, machine.platform.app.title);
  EXPECT_FALSE(machine.Device.Dialogs[0].restricted);
}

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
        Print(true);
        ASSERT_EQ(ColumnStarts(window.Picture1.Surface.Drawing()),
                  ColumnStarts(machine.Device.Jobs.back().page))
            << size << " points, " << height << " twips";
      }
    }
  }
}

TEST_F(ContentsWindow, FailingPrintIsToldAndLeavesNothingOnTheNextPage) {
  Type(std::string(300, 'x'));
  machine.Windows.Boxes.clear();
  Print(true);
  EXPECT_EQ(machine.Windows.Boxes.size(), 1U);
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
  Type("x");
  Print(true);
  ASSERT_EQ(machine.Device.Jobs.size(), 3U);
  EXPECT_LT(machine.Device.Jobs[2].page.size(), 20U);
}

TEST_F(ContentsWindow, LabelOfTheTitleClosesTheWindowAsOkDoes) {
  Hand::Press(window.Label1);
  EXPECT_TRUE(window.form.Unloaded());
}

}  // namespace
}  // namespace Morvane
