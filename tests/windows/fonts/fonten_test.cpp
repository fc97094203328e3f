#include "windows/fonts/fonten.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QExposeEvent>
#include <QWindow>

#include "tests/hand/hand.h"

namespace Morvane {
namespace {

class FontChooser : public ::testing::Test {
 protected:
  FontChooser() { hand.Show(window.form); }

  void Ok(const std::string& height = "8") {
    Hand::Type(window.Text1, height);
    Hand::Key(Qt::Key_Return);
  }
  void Select(const std::string& family) {
    state.ElencoFontName = family;
    Uncover();
  }
  // Another window was over this one.
  void Uncover() {
    QExposeEvent uncovered(QRegion(0, 0, 9, 9));
    QApplication::sendEvent(Hand::See(window.form).windowHandle(), &uncovered);
  }

  TestMachine machine;
  AppState state;
  Hand hand{machine};
  fONTEN window{state, hand.platform};
};

TEST_F(FontChooser, ListsTheFamiliesAlphabeticallyAndCountsOneMore) {
  EXPECT_EQ(window.LstFonts.List(0), "Arial");
  EXPECT_EQ(window.LstFonts.List(2), "Verdana");
  EXPECT_EQ(window.Label1.Caption(), "N. 4 Fonts installati");
}

TEST_F(FontChooser, RepaintGoesBackToTheFontInUse) {
  Select("Tahoma");
  EXPECT_EQ(window.TxtFontPreview.Text(), "Tahoma - aAbB 123 zZ");
  Hand::Press(window.Check3d1);
  EXPECT_EQ(window.TxtFontPreview.GetFont(), (Font{.name = "Tahoma", .size = 20, .italic = true}));
  window.LstFonts.UserSelects(0);
  EXPECT_EQ(window.TxtFontPreview.Text(), "Arial - aAbB 123 zZ");
  Uncover();
  EXPECT_EQ(window.TxtFontPreview.Text(), "Tahoma - aAbB 123 zZ");
}

TEST_F(FontChooser, NameInAnotherCaseSelectsNothingAndOkThenTakesArial) {
  Select("arial");
  EXPECT_EQ(window.LstFonts.ListIndex(), -1);
  EXPECT_EQ(window.TxtFontPreview.Text(), "");
  Ok();
  EXPECT_EQ(machine.Windows.Boxes.size(), 1U);
  EXPECT_EQ(state.ElencoFontName, "Arial");
}

TEST_F(FontChooser, OkHandsTheChoiceToListingAndPrinterAndHides) {
  Select("Verdana");
  Hand::Press(window.Check3d1);
  Ok("8.5");
  EXPECT_EQ(state.ElencoFontName, "Verdana");
  EXPECT_EQ(state.ElencoFontItalic, 1);
  EXPECT_EQ(state.ElencoFontBold, 0);
  EXPECT_EQ(state.ElencoFontSize, 8.5F);
  const Font& printer = machine.ThePrinter.Surface().GetFont();
  EXPECT_TRUE(printer.name == "Verdana" && printer.italic && !printer.bold);
  EXPECT_EQ(window.form.GetFont().name, "Verdana");
  EXPECT_TRUE(!window.form.Visible() && window.form.Loaded());
}

TEST(FontChooserTest, HeightIsKeptBetweenTwoAndTwentyFive) {
  TestMachine machine;
  AppState state;
  struct Case {
    const char* typed;
    float size;
    const char* shown;
  };
  for (const Case& height : {Case{"30", 25, "25"},
                             {"25", 25, "25"},
                             {"1", 2, "1"},
                             {"8,5", 8, "8,5"},
                             {"grande", 2, "grande"},
                             {"-1E300", 2, "-1E300"}}) {
    Hand another(machine);
    fONTEN chooser(state, another.platform);
    another.Show(chooser.form);
    Hand::Type(chooser.Text1, height.typed);
    Hand::Press(chooser.cmdOK);
    EXPECT_EQ(state.ElencoFontSize, height.size) << height.typed;
    EXPECT_EQ(chooser.Text1.Text(), height.shown);
  }
}

TEST_F(FontChooser, FamilyThatCannotPrintBecomesArialAndKeepsTheBoxes) {
  machine.Fonts.NotForPrinting = {"Tahoma"};
  Select("Tahoma");
  Hand::Press(window.Check3d2);
  Ok();
  ASSERT_EQ(machine.Windows.Boxes.size(), 1U);
  EXPECT_EQ(machine.Windows.Boxes[0].text,
            "Font scelto non disponibile, verrà scelto l'Arial a video ed in stampa.");
  EXPECT_EQ(state.ElencoFontName, "Arial");
  EXPECT_EQ(state.ElencoFontBold, 1);
  EXPECT_EQ(machine.ThePrinter.Surface().GetFont().name, "Arial");
  EXPECT_TRUE(machine.ThePrinter.Surface().GetFont().bold);
  EXPECT_EQ(window.form.GetFont().name, "Arial");
  EXPECT_FALSE(window.form.Visible());
}

TEST_F(FontChooser, WithoutArialTheFailureIsToldAndTheWindowStays) {
  machine.Fonts.NotForPrinting = {"Arial"};
  Select("Arial");
  Ok();
  EXPECT_EQ(machine.Windows.Boxes.size(), 2U);
  EXPECT_TRUE(window.form.Visible());
}

TEST_F(FontChooser, CancelWritesNothingAndKeepsTheBoxes) {
  state.ElencoFontSize = 9;
  Hand::Press(window.Check3d2);
  Hand::Press(window.cmdCancel);
  EXPECT_EQ(state.ElencoFontSize, 9);
  EXPECT_EQ(state.ElencoFontBold, 0);
  EXPECT_EQ(window.Check3d2.Value(), 1);
  EXPECT_FALSE(window.form.Visible());
}

}  // namespace
}  // namespace Morvane
