#include "render/cover_drawing.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "render/page_setup.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

// One cover of two by one inches, an inch from both edges of a sheet of ten by ten.
class CoverDrawing : public ::testing::Test {
 protected:
  CoverDrawing() {
    state.NumCopertine = 1;
    state.SpessoreBordo = 1;
    state.PaginaAlte = 297;
    SetCover(1, 1, 1, 2, 1);
    surface.SetSize(10 * kTwipsPerInch, 10 * kTwipsPerInch);
    surface.SetScaleMode(ScaleMode::Inches);
  }

  void SetCover(std::size_t n, double x, double y, double w, double h) {
    state.CopDistx[n] = x;
    state.CopDisty[n] = y;
    state.CopLarg[n] = w * kCentimetresPerInch;
    state.CopAlte[n] = h * kCentimetresPerInch;
  }

  template <typename T>
  std::vector<T> Drawn() const {
    std::vector<T> shapes;
    for (const Shape& shape : surface.Drawing()) {
      if (const T* one = std::get_if<T>(&shape)) shapes.push_back(*one);
    }
    return shapes;
  }

  TestMachine machine;
  AppState state;
  CoverSlots slots;
  DrawingSurface surface{machine.Metrics};
};

TEST_F(CoverDrawing, ThickestOutlinesOfAllCoversEndAtTheSheet) {
  state.SpessoreBordo = 32767;
  state.NumCopertine = 100;
  for (std::size_t n = 1; n <= 100; ++n) SetCover(n, 1, 1, 2, 1);
  DisegnaCopertine(surface, 1, state, slots);
  // The last line seen of each: its right edge lies 8 inches from the cover.
  EXPECT_EQ(Drawn<BoxShape>().size(), 100U * 1000);
}

TEST_F(CoverDrawing, EllipseTakesItsRadiusFromTheWidthAndABadOneCostsOnlyItself) {
  state.NumCopertine = 4;
  for (const std::size_t n : {1, 2, 3}) state.CopForma[n] = 1;
  SetCover(2, 1, 1, 0, 1);
  SetCover(3, 0, 0, 2, 4);
  SetCover(4, 5, 5, 1, 1);
  DisegnaCopertine(surface, 1, state, slots);
  const auto outlines = Drawn<EllipseShape>();
  ASSERT_EQ(outlines.size(), 2U);
  EXPECT_NEAR(outlines[0].box.width, 2 * outlines[0].box.height, 1e-6);
  EXPECT_NEAR(outlines[0].box.width, 2.018 * kTwipsPerInch, 1e-6);
  EXPECT_NEAR(outlines[1].box.width, 1.009 * kTwipsPerInch, 1e-6);
  EXPECT_NEAR(outlines[1].box.left, 0.4955 * kTwipsPerInch, 1e-6);
  EXPECT_EQ(Drawn<BoxShape>().size(), 1U);
  EXPECT_EQ(Drawn<TextShape>().size(), 1U);
  EXPECT_TRUE(CoverHolds(state, 1, 1.001, 1.001)) << "an ellipse is hit in its box";
  for (const auto& [x, y] : {std::pair(1.0, 1.5), {3.0, 1.5}, {2.0, 2.0}, {2.0, 1.0}})
    EXPECT_FALSE(CoverHolds(state, 1, x, y));
}

TEST_F(CoverDrawing, PageFitsTheSurfaceWithThePrintersLettersTurnedByTheLayoutAlone) {
  Printer& printer = machine.ThePrinter;
  printer.Surface().SetFontName("Verdana");
  printer.Surface().SetFontSize(40);
  printer.Surface().ForeColor = {200, 0, 0};
  surface.SetSize(4 * kTwipsPerInch, 6 * kTwipsPerInch);
  const double ratio = 4 / (11906 / 1440.0);
  EXPECT_NEAR(ImpostaPaginaMm(surface, state, printer), ratio, 1e-9);
  EXPECT_NEAR(ImpostaPagina(surface, state, printer), ratio, 1e-9);
  surface.Print("a");
  const TextShape text = Drawn<TextShape>().at(0);
  EXPECT_EQ(text.font.name, "Verdana");
  EXPECT_NEAR(text.font.size, 40 * ratio, 1e-6);
  EXPECT_EQ(text.color.red, 200);
  // A printer left in landscape is turned twice; anything but 1 is portrait.
  for (const auto& [layout, left, landscape] :
       {std::tuple(short{1}, 0, true), {1, 1, false}, {2, 0, false}}) {
    state.Orientamento = layout;
    printer.SetOrientation(left == 1 ? PageOrientation::Landscape : PageOrientation::Portrait);
    ImpostaPagina(surface, state, printer);
    EXPECT_EQ(surface.ScaleWidth() > surface.ScaleHeight(), landscape) << layout << left;
  }
  surface.SetSize(100, 0);
  EXPECT_DOUBLE_EQ(ImpostaPagina(surface, state, printer), 0.01);
  surface.CurrentX = 7;
  machine.Device.Broken = true;
  EXPECT_THROW(ImpostaPagina(surface, state, printer), RuntimeError);
  EXPECT_EQ(surface.CurrentX, 7) << "the page in view stays";
}

}  // namespace
}  // namespace Morvane
