#include "windows/contents/listing_composition.h"

#include <gtest/gtest.h>

#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

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
  LineCount Draw() { return PrintRoutineAAAA(page, 1, state, {list, title, false}); }

  static double Mm(double twips) { return twips / kTwipsPerMillimetre; }

  std::vector<TextShape> Texts() const {
    std::vector<TextShape> texts;
    for (const Shape& shape : page.Drawing()) {
      if (const auto* text = std::get_if<TextShape>(&shape)) texts.push_back(*text);
    }
    return texts;
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

// Files lose their path and headings are bold; the back panel takes a blank before the bracket for a name.
TEST_F(ListingComposition, HeadingsAndEmptyLinesHaveTheirPlace) {
  std::vector<std::string> lines(28 + 29 + 1, "x");  // the front; an empty one takes no height
  const std::vector<std::string> first = {"(C:\\M)", "C:\\M\\a", "", "b", " (y"};
  std::copy(first.begin(), first.end(), lines.begin());
  lines.insert(lines.end(), {" (y", "(z)"});
  Fill(lines);
  state.ElencoFontBold = 1;
  state.ElencoFontItalic = 1;
  Draw();
  std::map<std::string, std::string> looks;
  for (const TextShape& text : Texts()) {
    looks[text.text] +=
        std::string(text.font.bold ? "bold" : "plain") + (text.font.italic ? " italic " : " ");
  }
  EXPECT_NEAR(Mm(Texts()[3].top), 21 + 3 * kLineAtTenPoints, kTolerance);
  EXPECT_EQ(looks["(C:\\M)"], "bold italic ");
  EXPECT_EQ(looks["a"], "plain italic ");
  EXPECT_EQ(looks[" (y"], "bold italic plain italic ");
  EXPECT_EQ(looks["(z)"], "bold italic ");
}

// 118 mm take 29 letters at 10 points and 26 at 11.
TEST_F(ListingComposition, SpineTitleShrinksUntilItFits) {
  for (const auto& [letters, size] : {std::pair(26, 11), {27, 10}, {29, 10}, {30, 9}}) {
    title = std::string(static_cast<std::size_t>(letters), 'm');
    page.Cls();
    Draw();
    EXPECT_EQ(Texts()[1].font.size, size) << letters;
  }
}

}  // namespace
}  // namespace Morvane
