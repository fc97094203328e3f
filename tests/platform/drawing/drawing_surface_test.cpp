#include "platform/drawing/drawing_surface.h"

#include <gtest/gtest.h>

#include "platform/drawing/printer.h"
#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

class Surface : public ::testing::Test {
 protected:
  Surface() {
    surface.SetSize(2880, 1440);
    machine.WriteFile("C:\\a.jpg", "PICTURE");
  }

  template <typename T>
  T Last() const {
    return std::get<T>(surface.Drawing().back());
  }

  TestMachine machine;
  DrawingSurface surface{machine.Metrics};
};

TEST_F(Surface, UnitsAndUserScaleGiveTheSamePlaceInTwips) {
  surface.SetScaleMode(ScaleMode::Inches);
  EXPECT_DOUBLE_EQ(surface.ScaleWidth(), 2);
  surface.Scale(10, 20, 20, 10);  // upside down
  surface.Line(10, 20, 15, 10);
  EXPECT_DOUBLE_EQ(Last<LineShape>().x2, 1440);
  EXPECT_DOUBLE_EQ(Last<LineShape>().y2, 1440);
  EXPECT_DOUBLE_EQ(surface.UserX(1440), 15);
  surface.Circle(15, 15, 2, {}, 2);
  EXPECT_EQ(Last<EllipseShape>().box, (TwipsBox{1152, 1008, 576, -576}));
  surface.SetSize(5760, 5760);  // a scale keeps its corners
  surface.Line(10, 20, 20, 10);
  EXPECT_DOUBLE_EQ(Last<LineShape>().x2, 5760);
  surface.SetScaleMode(ScaleMode::Millimetres);
  surface.Line(0, 0, 25.4, 25.4);
  EXPECT_NEAR(Last<LineShape>().x2, 1440, 1e-9);
}

// In inches of a sheet of two by one; the margin of a printer lies to the left of and above 0,0.
TEST_F(Surface, KeepsOnlyWhatLiesOnTheSheet) {
  const PicturePtr picture = machine.Pictures.LoadPicture("C:\\a.jpg");
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

TEST_F(Surface, PrintMovesDownAndBackToTheLeftEdge) {
  surface.Scale(5, 0, 15, 10);
  surface.CurrentX = 7;
  const double line = surface.TextHeight("x");
  surface.Print("x");
  surface.Print("");
  EXPECT_DOUBLE_EQ(surface.CurrentX, 5);
  EXPECT_DOUBLE_EQ(surface.CurrentY, 2 * line);
  EXPECT_EQ(surface.Drawing().size(), 1U);
  EXPECT_DOUBLE_EQ(surface.TextHeight("a\r\nb\r\n"), 3 * line);
  EXPECT_DOUBLE_EQ(surface.TextWidth("a\r\nlong"), surface.TextWidth("long"));
}

TEST_F(Surface, RefusesWhatCannotBeDrawnAndStaysAsItWas) {
  for (const double size : {0, -1}) EXPECT_THROW(surface.SetFontSize(size), RuntimeError);
  EXPECT_THROW(surface.PaintPicture(nullptr, 0, 0, 1, 1), RuntimeError);
  EXPECT_THROW(surface.Circle(0, 0, -1, {}), RuntimeError);
  EXPECT_THROW(surface.Circle(0, 0, 1, {}, -1), RuntimeError);
  EXPECT_THROW(surface.Scale(1, 1, 1, 2), RuntimeError);
  EXPECT_TRUE(surface.Drawing().empty() && surface.GetFont().size > 0);
  Printer& printer = machine.ThePrinter;
  const double width = printer.Width();
  printer.SetOrientation(PageOrientation::Landscape);
  EXPECT_DOUBLE_EQ(printer.Surface().Height(), width);
  printer.SetFontName("Tahoma");
  EXPECT_THROW(printer.SetFontName("Nessuno"), RuntimeError);
  EXPECT_EQ(printer.Surface().GetFont().name, "Tahoma");
}

}  // namespace
}  // namespace Morvane
