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
  // Left edges of the white fills, in drawing order.
  std::vector<std::pair<double, double>> Fills() const {
    std::vector<std::pair<double, double>> fills;
    for (const Shape& shape : page.Drawing()) {
      const auto* box = std::get_if<BoxShape>(&shape);
      if (box == nullptr || !box->filled) continue;
      EXPECT_EQ(box->color, QBColor(15));
      fills.emplace_back(std::round(Mm(box->box.left) * 1000) / 1000, std::round(Mm(box->box.top)));
    }
    return fills;
  }

  TestMachine machine;
  AppState state;
  Listing list;
  std::string title = "Ti";
  bool fullPaths = false;
  DrawingSurface page{machine.Metrics};
};

TEST_F(ListingComposition, EmptyListDrawsTitleSpinesOutlinesAndFooterInOrder) {
  EXPECT_EQ(Draw(), 0U);
  const std::vector<TextShape> texts = Texts();
  ASSERT_EQ(texts.size(), 6U);
  EXPECT_EQ(texts[0].text, "Ti");
  EXPECT_TRUE(texts[0].font.bold && texts[0].font.underline);
  EXPECT_EQ(texts[1].text, "T");
  EXPECT_EQ(texts[3].text, "T");
  EXPECT_EQ(texts[5].text, "Creazione e stampa con Morvane - http://www.morvane.example");
  EXPECT_FALSE(texts[5].font.bold);
  EXPECT_EQ(texts[5].font.size, 7);
  EXPECT_NEAR(Mm(texts[5].top), 266, kTolerance);
  EXPECT_THAT(Fills(), ElementsAre(std::pair(140.0, 20.0), std::pair(163.0, 140.0)));
  ASSERT_EQ(page.Drawing().size(), 12U);
  const auto front = std::get<BoxShape>(page.Drawing()[7]);
  EXPECT_FALSE(front.filled);
  EXPECT_NEAR(Mm(front.box.left + front.box.width), 141, kTolerance);
  const auto spine = std::get<LineShape>(page.Drawing()[10]);
  EXPECT_NEAR(Mm(spine.x1), 164, kTolerance);
}

TEST_F(ListingComposition, ColumnsStandWhereTheyShouldAndAreWipedInTurn) {
  // At 10 points a front column takes 29 lines, its first the title; a back column 28.
  FillNumbered(28 + 29 + 28 + 28 + 5);
  EXPECT_EQ(Draw(), 5U);
  EXPECT_NEAR(Mm(TextOf("27").left), 21, kTolerance);
  EXPECT_NEAR(Mm(TextOf("28").left), 81, kTolerance);
  EXPECT_NEAR(Mm(TextOf("28").top), 21, kTolerance);
  EXPECT_NEAR(Mm(TextOf("57").left), 27, kTolerance);
  EXPECT_NEAR(Mm(TextOf("57").top), 142, kTolerance);
  EXPECT_NEAR(Mm(TextOf("85").left), 96, kTolerance);
  EXPECT_THAT(Fills(), ElementsAre(std::pair(79.0, 20.0), std::pair(140.0, 20.0), std::pair(140.0, 20.0),
                                   std::pair(93.5, 141.0), std::pair(164.0, 141.0), std::pair(163.0, 140.0)));
}

TEST_F(ListingComposition, SevenColumnsRoundTheirEdgesToTheEvenNeighbour) {
  state.ElencoColonne = 7;
  FillNumbered(28 + 6 * 29);
  EXPECT_EQ(Draw(), 0U);
  EXPECT_NEAR(Mm(TextOf("28").left), 38, kTolerance);
  EXPECT_NEAR(Mm(TextOf("201").left), 124, kTolerance);
}

TEST_F(ListingComposition, ListThatFillsItsLastColumnExactlyLosesNothing) {
  FillNumbered(28 + 29);
  EXPECT_EQ(Draw(), 0U);
  EXPECT_EQ(Fills().size(), 4U);  // the step past the end breaks the last front column
  FillNumbered(28 + 29 + 28 + 28);
  page.Cls();
  EXPECT_EQ(Draw(), 0U);
  EXPECT_EQ(Fills().size(), 6U);
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
