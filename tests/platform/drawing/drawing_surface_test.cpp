#include "platform/drawing/drawing_surface.h"

#include <gtest/gtest.h>

#include "platform/drawing/printer.h"
#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

struct Square : Picture {
  double WidthTwips() const override { return 1500; }
  double HeightTwips() const override { return 1500; }
};

// On a sheet of two by one inches; the margin of a printer lies to the left of and above 0,0.
TEST(Surface, KeepsOnlyWhatLiesOnTheSheet) {
  TestMachine machine;
  const auto picture = std::make_shared<Square>();
  DrawingSurface surface(machine.Metrics);
  surface.SetSize(2880, 1440);
  surface.SetScaleMode(ScaleMode::Inches);
  surface.Line(-5, -5, 5, 5, LineStyle::Box);
  surface.Line(1e308, 0, 1e308, 1, LineStyle::Box);
  surface.Line(0, -9, 2, -2);
  surface.Circle(1, 0.5, 5, {});
  surface.PaintPicture(picture, 0, 4, 1, 1);
  surface.CurrentY = -1e308;
  surface.Print("x");
  EXPECT_TRUE(surface.Drawing().empty());

  surface.Line(-0.5, -5, 5, 5, LineStyle::Box);
  surface.Line(-5, -5, 5, 5, LineStyle::FilledBox);
  surface.Line(9, 0.5, -1e308, 0.5);
  surface.Circle(1, 0.5, 3, {}, 0.2);
  surface.PaintPicture(picture, -1, -1, 1e308, 3);
  surface.CurrentY = -0.1;
  surface.Print("x");
  EXPECT_EQ(surface.Drawing().size(), 6U);
}

TEST(Surface, TurnsOverWithItsScaleAndRefusesWhatCannotBeDrawn) {
  TestMachine machine;
  DrawingSurface& surface = machine.ThePrinter.Surface();
  surface.SetSize(2880, 1440);
  surface.Scale(10, 20, 20, 10);  // upside down
  for (const double size : {0, -1}) EXPECT_THROW(surface.SetFontSize(size), RuntimeError);
  EXPECT_THROW(surface.PaintPicture(nullptr, 0, 0, 1, 1), RuntimeError);
  EXPECT_THROW(surface.Circle(0, 0, -1, {}), RuntimeError);
  EXPECT_THROW(surface.Circle(0, 0, 1, {}, -1), RuntimeError);
  EXPECT_THROW(surface.Scale(1, 1, 1, 2), RuntimeError);
  EXPECT_TRUE(surface.Drawing().empty() && surface.GetFont().size > 0);
  surface.CurrentX = 15;
  surface.Print("");
  EXPECT_EQ(surface.CurrentX, 10) << "a line ends at the left edge";
  surface.Circle(15, 15, 2, {}, 2);
  EXPECT_EQ(std::get<EllipseShape>(surface.Drawing().at(0)).box, (TwipsBox{1152, 1008, 576, -576}));
}

}  // namespace
}  // namespace Morvane
