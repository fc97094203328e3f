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
  void ExpectListed(const std::string& family, bool italic, bool bold) {
    EXPECT_EQ(state.ElencoFontName, family);
    EXPECT_EQ(state.ElencoFontItalic, italic ? 1 : 0);
    EXPECT_EQ(state.ElencoFontBold, bold ? 1 : 0);
    const Font& printer = machine.ThePrinter.Surface().GetFont();
    EXPECT_TRUE(printer.name == family && printer.italic == italic && printer.bold == bold);
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

TEST_F(FontChooser, ListsTheFamiliesAlphabeticallyAndShowsTheOneInUseWheneverItIsUncovered) {
  EXPECT_EQ(2 * window.form.Left() + window.form.Width(), machine.TheScreen.Width);
  EXPECT_EQ(Hand::Rows(window.LstFonts), (std::vector<std::string>{"Arial", "Tahoma", "Verdana"}));
  EXPECT_EQ(window.Label1.Caption(), "N. 4 Fonts installati");
  Select("Tahoma");
  Hand::Press(window.Check3d1);
  EXPECT_EQ(window.TxtFontPreview.Text(), "Tahoma - aAbB 123 zZ");
  EXPECT_EQ(window.TxtFontPreview.GetFont(), (Font{.name = "Tahoma", .size = 20, .italic = true}));
  Hand::Press(window.Check3d2);
  EXPECT_TRUE(window.TxtFontPreview.GetFont().bold);
  Hand::ClickRow(window.LstFonts, 0);
  EXPECT_EQ(window.TxtFontPreview.Text(), "Arial - aAbB 123 zZ");
  Uncover();
  EXPECT_EQ(window.TxtFontPreview.Text(), "Tahoma - aAbB 123 zZ");
}

TEST_F(FontChooser, OkHandsTheChoiceToListingAndPrinterAndHides) {
  Select("Verdana");
  Hand::Press(window.Check3d1);
  Ok("8.5");
  EXPECT_TRUE(window.form.Loaded() && !window.form.Visible());
  ExpectListed("Verdana", true, false);
  EXPECT_EQ(state.ElencoFontSize, 8.5F);
}

TEST_F(FontChooser, HeightIsKeptBetweenTwoAndTwentyFive) {
  struct Case {
    const char* typed;
    float size;
    const char* shown;
  };
  window.form.Hide();
  for (const Case& height : {Case{"25", 25, "25"},
                             {"25.5", 25, "25"},
                             {"1", 2, "1"},
                             {"8,5", 8, "8,5"},
                             {"grande", 2, "grande"},
                             {"-1E300", 2, "-1E300"}}) {
    Hand again(machine);
    fONTEN chooser(state, again.platform);
    again.Show(chooser.form);
    Hand::Type(chooser.Text1, height.typed);
    Hand::Press(chooser.cmdOK);
    EXPECT_EQ(state.ElencoFontSize, height.size) << height.typed;
    EXPECT_EQ(chooser.Text1.Text(), height.shown);
  }
}

TEST_F(FontChooser, FamilyThatCannotPrintAndNoneAtAllBecomeArialAndKeepTheBoxes) {
  machine.Fonts.NotForPrinting = {"Tahoma"};
  window.form.Hide();
  for (const std::string family : {"Tahoma", "arial"}) {  // another case selects nothing
    Hand again(machine);
    fONTEN chooser(state, again.platform);
    state.ElencoFontName = family;
    again.Show(chooser.form);
    EXPECT_EQ(chooser.LstFonts.ListIndex(), family == "Tahoma" ? 1 : -1);
    Hand::Press(chooser.Check3d2);
    machine.Windows.Boxes.clear();
    Hand::Press(chooser.cmdOK);
    ASSERT_EQ(machine.Windows.Boxes.size(), 1U);
    EXPECT_EQ(machine.Windows.Boxes[0].text,
              "Font scelto non disponibile, verrà scelto l'Arial a video ed in stampa.");
    EXPECT_EQ(machine.Windows.Boxes[0].buttons, MsgBoxButtons::Ok);
    ExpectListed("Arial", false, true);
    EXPECT_EQ(chooser.form.GetFont(), (Font{.name = "Arial", .size = 8, .bold = true}));
    EXPECT_FALSE(chooser.form.Visible());
  }
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
  Hand::Key(Qt::Key_Escape);
  EXPECT_EQ(state.ElencoFontSize, 9);
  EXPECT_EQ(state.ElencoFontBold, 0);
  EXPECT_EQ(window.Check3d2.Value(), 1);
  EXPECT_FALSE(window.form.Visible());
}

}  // namespace
}  // namespace Morvane
