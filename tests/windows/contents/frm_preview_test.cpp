#include "windows/contents/frm_preview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/hand/hand.h"

namespace Morvane {
namespace {

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
  int fontChoosers = 0;
  Hand hand{machine};
  FrmPreview window{state, hand.platform, {[&] { ++fontChoosers; }, [] { return std::string("ok"); }}};
};

TEST_F(ContentsWindow, OpensWithItsTitleTwoColumnsAndTheSheetInProportion) {
  EXPECT_TRUE(Shows("Titolo CD"));
  EXPECT_TRUE(window.Option1[0].Value());
  EXPECT_DOUBLE_EQ(window.Picture1.Height(), 6765 - 60 - 500);
  EXPECT_DOUBLE_EQ(window.Picture1.Width() / window.Picture1.Height(), 210.0 / 297);
  EXPECT_EQ(window.Command1.ImageKey(), "ok");
  EXPECT_EQ(window.Picture2.ImageKey(), "logo");
  EXPECT_EQ(state.ElencoFontSize, 8);
}

TEST_F(ContentsWindow, ColumnsSurviveEverythingButAResizeAndAScan) {
  Hand::Press(window.Option1[3]);
  Type("Altro");
  Hand::Press(window.Check1);
  Hand::Press(window.Command4);
  EXPECT_EQ(fontChoosers, 1);
  EXPECT_EQ(state.ElencoColonne, 5);
  Hand::Resize(window.form, 9000, 8000);
  EXPECT_EQ(state.ElencoColonne, 2);
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
  EXPECT_FALSE(machine.Device.Dialogs[0].restricted);
  const auto& footer = std::get<TextShape>(machine.Device.Jobs[0].page.back());
  EXPECT_EQ(footer.font.size, 7);
  EXPECT_NEAR(footer.top, 266 * kTwipsPerMillimetre, 1e-6);
}

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
