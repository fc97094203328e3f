#include "windows/contents/listing_composition.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/listing_font.h"
#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;

constexpr double kTolerance = 1e-6;
constexpr double kLineAtTenPoints = 10 * kTwipsPerPoint * 1.15 / kTwipsPerMillimetre;

class ListingComposition : public ::testing::Test {
 protected:
  ListingComposition() {
    state.ElencoFontName = "Arial";
    state.ElencoFontSize = 10;
    page.SetSize(11906, 16838);
    page.SetScaleMode(ScaleMode::Millimetres);
  }

  void Fill(const std::vector<std::string>& lines) {
    list.Clear();
    for (const std::string& line : lines) list.Add(line);
  }
  void FillNumbered(int count) {
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i) lines.push_back(std::to_string(i));
    Fill(lines);
  }
  LineCount Draw(double ratio = 1) { return PrintRoutineAAAA(page, ratio, state, {list, title, fullPaths}); }

  static double Mm(double twips) { return twips / kTwipsPerMillimetre; }

  std::vector<TextShape> Texts() const {
    std::vector<TextShape> texts;
    for (const Shape& shape : page.Drawing()) {
      if (const auto* text = std::get_if<TextShape>(&shape)) texts.push_back(*text);
    }
    return texts;
  }
  TextShape TextOf(const std::string& text) const {
    for (const TextShape& shape : Texts()) {
      if (shape.text == text) return shape;
    }
    ADD_FAILURE() << "not drawn: " << text;
    return {};
  }
  std::size_t Fills() const {
    return static_cast<std::size_t>(
        std::count_if(page.Drawing().begin(), page.Drawing().end(), [](const Shape& shape) {
          const auto* box = std::get_if<BoxShape>(&shape);
          return box != nullptr && box->filled;
        }));
  }

  TestMachine machine;
  AppState state;
  Listing list;
  std::string title = "Ti";
  bool fullPaths = false;
  DrawingSurface page{machine.Metrics};
};

// At 10 points the front columns take 28 lines below the title and 29, the back ones 28 each.
TEST_F(ListingComposition, ListThatFillsItsLastColumnExactlyLosesNothingAndALongerOneEndsThere) {
  struct Case {
    int lines;
    LineCount lost;
    std::size_t fills;  // one at each break, even of the step past the end, and the two that always come
  };
  for (const Case& filled : {Case{28, 0, 3},
                             {28 + 29, 0, 4},
                             {28 + 29 + 28, 0, 5},
                             {28 + 29 + 28 + 28, 0, 6},
                             {28 + 29 + 28 + 28 + 5, 5, 6}}) {
    FillNumbered(filled.lines);
    page.Cls();
    EXPECT_EQ(Draw(), filled.lost) << filled.lines;
    EXPECT_EQ(Fills(), filled.fills) << filled.lines;
  }
}

TEST_F(ListingComposition, HeadingsAreBoldAndFilesLoseTheirPathUnlessAskedFor) {
  Fill({"(C:\\M)", "C:\\M\\a", "", "b", " (x"});
  state.ElencoFontBold = 1;
  state.ElencoFontItalic = 1;
  Draw();
  EXPECT_TRUE(TextOf("(C:\\M)").font.bold);
  EXPECT_TRUE(TextOf(" (x").font.bold);
  EXPECT_FALSE(TextOf("a").font.bold);
  EXPECT_TRUE(TextOf("a").font.italic);
  EXPECT_NEAR(Mm(TextOf("b").top), 21 + 3 * kLineAtTenPoints, kTolerance);  // an empty line takes no height
  fullPaths = true;
  page.Cls();
  Draw();
  EXPECT_EQ(TextOf("C:\\M\\a").text, "C:\\M\\a");
}

TEST_F(ListingComposition, BackPanelTakesABlankBeforeTheBracketForAName) {
  std::vector<std::string> lines(28 + 29, "x");
  lines.push_back(" (y");
  Fill(lines);
  Draw();
  EXPECT_FALSE(TextOf(" (y").font.bold);
}

TEST_F(ListingComposition, SpineTitleShrinksUntilItFitsAndIsCentred) {
  title = "àbc";
  Draw();
  const std::vector<TextShape> few = Texts();
  EXPECT_EQ(few[1].text, "à");
  EXPECT_EQ(few[1].font.size, 11);
  EXPECT_NEAR(Mm(few[1].left), 23 - Mm(11 * kTwipsPerPoint / 4), kTolerance);
  EXPECT_NEAR(Mm(few[2].top), 200 - 0.5 * 1.1 * kLineAtTenPoints, 1e-4);
  EXPECT_NEAR(Mm(few[4].left), 167 - Mm(11 * kTwipsPerPoint / 4), kTolerance);

  title = std::string(27, 'm');  // 118 mm take 29 letters at 10 points, 26 at 11
  page.Cls();
  Draw();
  EXPECT_EQ(Texts()[1].font.size, 10);
}

TEST_F(ListingComposition, EmptyTitleTakesOneLineAndOneThatFitsNoSizeIsRefusedOnScreenAndPaper) {
  title = "";
  Fill({"a"});
  Draw();
  EXPECT_NEAR(Mm(TextOf("a").top), 21 + kLineAtTenPoints, kTolerance);
  EXPECT_EQ(Texts().size(), 2U);
  title = std::string(700, 'm');
  EXPECT_THROW(Draw(1), RuntimeError);
  EXPECT_THROW(Draw(0.4847), RuntimeError);
}

TEST(ListingFont, SizeZeroBecomesEightAndSmallOnesBecomeTwo) {
  AppState state;
  for (const auto& [given, expected] : {std::pair(0.0F, 8.0F), {1.0F, 2.0F}, {-3.0F, 2.0F}, {8.5F, 8.5F}}) {
    state.ElencoFontSize = given;
    RepairListingFontSize(state);
    EXPECT_EQ(state.ElencoFontSize, expected);
  }
}

}  // namespace
}  // namespace Morvane
