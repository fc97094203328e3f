#include "render/page_setup.h"

#include <algorithm>
#include <cmath>

#include "platform/resume_next.h"
#include "platform/units.h"

namespace Morvane {

namespace {

constexpr double kSmallestRatio = 0.01;

// The raw ratio: inches of the surface over units of the page, with `unitsPerInch` of those to the inch.
double SetUp(DrawingSurface& objPrint, const AppState& state, Printer& printer, double unitsPerInch) {
  const double pw = std::nearbyint(printer.Width()) / kTwipsPerInch * unitsPerInch;
  const double ph = std::nearbyint(printer.Height()) / kTwipsPerInch * unitsPerInch;

  // The layout's orientation alone decides: the sheet of a printer that was left in landscape comes turned
  // already, and is turned once more.
  const bool landscape = state.Orientamento == 1;
  const double paginaSchermoLarg = landscape ? ph : pw;
  const double paginaSchermoAlte = landscape ? pw : ph;

  objPrint.SetScaleMode(ScaleMode::Inches);
  const double heightRatio = objPrint.ScaleHeight() / paginaSchermoAlte;
  const double widthRatio = objPrint.ScaleWidth() / paginaSchermoLarg;
  double ratio = heightRatio < widthRatio ? heightRatio : widthRatio;
  if (!(ratio >= kSmallestRatio)) ratio = kSmallestRatio;

  const DrawingSurface& paper = printer.Surface();
  ResumeNext([&] { objPrint.Scale(0, 0, paginaSchermoLarg, paginaSchermoAlte); });
  objPrint.SetFontName(paper.GetFont().name);
  ResumeNext([&] { objPrint.SetFontSize(paper.GetFont().size * ratio); });
  objPrint.ForeColor = paper.ForeColor;
  objPrint.Cls();
  return ratio;
}

}  // namespace

double ImpostaPagina(DrawingSurface& objPrint, const AppState& state, Printer& printer) {
  return SetUp(objPrint, state, printer, 1.0);
}

double ImpostaPaginaMm(DrawingSurface& objPrint, const AppState& state, Printer& printer) {
  return SetUp(objPrint, state, printer, kMillimetresPerInch) * kMillimetresPerInch;
}

}  // namespace Morvane
