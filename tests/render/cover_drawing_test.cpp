#include "render/cover_drawing.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "render/page_setup.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

// On a sheet of ten by ten inches.
class CoverDrawing : public ::testing::Test {
 protected:
  CoverDrawing() {
    surface.SetSize(10 * kTwipsPerInch, 10 * kTwipsPerInch);
    surface.SetScaleMode(ScaleMode::Inches);
  }

  TestMachine machine;
  AppState state;
  CoverSlots slots;
  DrawingSurface surface{machine.Metrics};
};

TEST_F(CoverDrawing, ThickestOutlinesOfAllCoversEndAtTheSheet) {
  state.SpessoreBordo = 32767;
  state.NumCopertine = 100;
  for (std::size_t n = 1; n <= 100; ++n) {
    state.CopDistx[n] = state.CopDisty[n] = 1;
    state.CopLarg[n] = 2 * kCentimetresPerInch;
    state.CopAlte[n] = kCentimetresPerInch;
  }
  DisegnaCopertine(surface, 1, state, slots);
  // The last line seen of each: its right edge lies 8 inches from the cover.
  EXPECT_EQ(surface.Drawing().size(), 100U * 1000 + 1) << "and the footer";
}

// A printer left in landscape is turned twice; anything but 1 is portrait.
TEST_F(CoverDrawing, PageIsTurnedByTheLayoutAloneHasThePrintersLettersAndStaysWhenThePrinterFails) {
  Printer& printer = machine.ThePrinter;
  printer.SetFontName("Verdana");
  EXPECT_THROW(printer.SetFontName("Nessuno"), RuntimeError);
  printer.Surface().SetFontSize(40);
  for (const auto& [layout, left, landscape] :
       {std::tuple(short{1}, 0, true), {1, 1, false}, {2, 0, false}}) {
    state.Orientamento = layout;
    printer.SetOrientation(left == 1 ? PageOrientation::Landscape : PageOrientation::Portrait);
    const double ratio = ImpostaPagina(surface, state, printer);
    EXPECT_NEAR(surface.GetFont().size, 40 * ratio, 1e-6);
    EXPECT_EQ(surface.ScaleWidth() > surface.ScaleHeight(), landscape) << layout << left;
    EXPECT_NEAR(ImpostaPaginaMm(surface, state, printer), ratio, 1e-6);
  }
  EXPECT_EQ(surface.GetFont().name, "Verdana");
  surface.SetSize(100, 0);
  EXPECT_DOUBLE_EQ(ImpostaPagina(surface, state, printer), 0.01);
  surface.CurrentX = 7;
  machine.Device.BeforeCall = [](auto&, auto number) { throw RuntimeError(number, "inceppata"); };
  EXPECT_THROW(ImpostaPagina(surface, state, printer), RuntimeError);
  EXPECT_EQ(surface.CurrentX, 7) << "the page in view stays";
}

}  // namespace
}  // namespace Morvane
