#include "render/cover_drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "render/page_setup.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

constexpr double kTwipsTolerance = 1e-6;

class CoverDrawing : public ::testing::Test {
 protected:
  CoverDrawing() {
    state.NumCopertine = 1;
    state.SpessoreBordo = 1;
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

  static void ExpectBox(const TwipsBox& box, double left, double top, double right, double bottom) {
    EXPECT_NEAR(box.left, left * kTwipsPerInch, kTwipsTolerance);
    EXPECT_NEAR(box.top, top * kTwipsPerInch, kTwipsTolerance);
    EXPECT_NEAR(box.left + box.width, right * kTwipsPerInch, kTwipsTolerance);
    EXPECT_NEAR(box.top + box.height, bottom * kTwipsPerInch, kTwipsTolerance);
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

TEST_F(CoverDrawing, EllipseTakesItsRadiusFromTheWidthAlone) {
  state.CopForma[1] = 1;
  SetCover(1, 0, 0, 4, 2);
  DisegnaCopertine(surface, 1, state, slots);
  ExpectBox(Drawn<EllipseShape>().back().box, 2 - 2.009, 1 - 1.0045, 2 + 2.009, 1 + 1.0045);

  SetCover(1, 0, 0, 2, 4);
  DisegnaCopertine(surface, 1, state, slots);
  ExpectBox(Drawn<EllipseShape>().back().box, 1 - 1.009 / 2, 2 - 1.009, 1 + 1.009 / 2, 2 + 1.009);
}

TEST_F(CoverDrawing, BadEllipseCostsOnlyItself) {
  state.NumCopertine = 2;
  state.CopForma[1] = 1;
  SetCover(1, 1, 1, 0, 1);
  SetCover(2, 5, 5, 1, 1);
  DisegnaCopertine(surface, 1, state, slots);
  EXPECT_TRUE(Drawn<EllipseShape>().empty());
  EXPECT_EQ(Drawn<BoxShape>().size(), 1U);
  EXPECT_EQ(Drawn<TextShape>().size(), 1U);
}

TEST_F(CoverDrawing, HitTestIsStrictAndTakesAnEllipseByItsBox) {
  state.CopForma[1] = 1;
  DisegnaCopertine(surface, 1, state, slots);
  EXPECT_TRUE(CoverHolds(state, 1, 1.001, 1.001));
  EXPECT_FALSE(CoverHolds(state, 1, 1, 1.5));
  EXPECT_FALSE(CoverHolds(state, 1, 3, 1.5));
  EXPECT_FALSE(CoverHolds(state, 1, 2, 2));
}

class PageSetup : public CoverDrawing {
 protected:
  PageSetup() { surface.SetSize(4 * kTwipsPerInch, 6 * kTwipsPerInch); }
};

TEST_F(PageSetup, TakesTheTighterDirectionOfTheSheet) {
  EXPECT_NEAR(ImpostaPagina(surface, state, machine.ThePrinter), 4 / (11906 / 1440.0), 1e-9);
  surface.Line(0, 0, surface.ScaleWidth(), surface.ScaleHeight());
  const auto line = Drawn<LineShape>().back();
  EXPECT_NEAR(line.x2, surface.Width(), kTwipsTolerance);
  EXPECT_NEAR(line.y2, surface.Height(), kTwipsTolerance);
  EXPECT_NEAR(ImpostaPaginaMm(surface, state, machine.ThePrinter), 4 / (11906 / 1440.0), 1e-9);
}

TEST_F(PageSetup, WritesAsThePrinterDoesInLettersAsSmallAsThePage) {
  machine.ThePrinter.Surface().SetFontName("Verdana");
  machine.ThePrinter.Surface().SetFontSize(40);
  machine.ThePrinter.Surface().ForeColor = {200, 0, 0};
  const double ratio = ImpostaPagina(surface, state, machine.ThePrinter);
  surface.Print("a");
  const TextShape text = Drawn<TextShape>().at(0);
  EXPECT_EQ(text.font.name, "Verdana");
  EXPECT_NEAR(text.font.size, 40 * ratio, 1e-6);
  EXPECT_EQ(text.color.red, 200);
}

TEST_F(PageSetup, TurnsByTheLayoutAloneSoALandscapePrinterIsTurnedTwice) {
  state.Orientamento = 1;
  ImpostaPagina(surface, state, machine.ThePrinter);
  EXPECT_GT(surface.ScaleWidth(), surface.ScaleHeight());
  machine.ThePrinter.SetOrientation(PageOrientation::Landscape);
  ImpostaPagina(surface, state, machine.ThePrinter);
  EXPECT_LT(surface.ScaleWidth(), surface.ScaleHeight());
  state.Orientamento = 2;  // anything but 1 is portrait here
  machine.ThePrinter.SetOrientation(PageOrientation::Portrait);
  ImpostaPagina(surface, state, machine.ThePrinter);
  EXPECT_LT(surface.ScaleWidth(), surface.ScaleHeight());
}

TEST_F(PageSetup, NeverGivesZeroAndLeavesThePrinterAlone) {
  machine.ThePrinter.Surface().SetScaleMode(ScaleMode::Millimetres);
  surface.SetSize(100, 0);
  EXPECT_DOUBLE_EQ(ImpostaPagina(surface, state, machine.ThePrinter), 0.01);
  EXPECT_DOUBLE_EQ(ImpostaPaginaMm(surface, state, machine.ThePrinter), 0.254);
  EXPECT_EQ(machine.ThePrinter.Surface().GetScaleMode(), ScaleMode::Millimetres);
}

TEST_F(PageSetup, WithoutAPrinterFailsAndKeepsTheSurface) {
  surface.Line(0, 0, 1, 1);
  machine.Device.Broken = true;
  EXPECT_THROW(ImpostaPagina(surface, state, machine.ThePrinter), RuntimeError);
  EXPECT_EQ(surface.Drawing().size(), 1U);
}

}  // namespace
}  // namespace Morvane
