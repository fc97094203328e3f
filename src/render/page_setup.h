#pragma once

#include "core/app_state.h"
#include "platform/drawing/printer.h"

namespace Morvane {

// Both prepare a screen surface for one drawing: the whole surface stands for the whole sheet of the current
// printer, turned as Orientamento says; the printer's font and colour in proportion; cleared. The result is
// the size of the surface over the size of the page in the tighter direction; it scales font sizes, never
// coordinates. RuntimeError PrinterFailure, and nothing changed, when the printer cannot tell its sheet.

// Coordinates in inches. The result is at least 0.01.
double ImpostaPagina(DrawingSurface& objPrint, const AppState& state, Printer& printer);

// Coordinates in millimetres. The result is at least 0.254.
double ImpostaPaginaMm(DrawingSurface& objPrint, const AppState& state, Printer& printer);

}  // namespace Morvane
