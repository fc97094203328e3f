#pragma once

#include "core/app_state.h"
#include "platform/drawing/printer.h"
#include "render/cover_drawing.h"

namespace Morvane {

// Asks for the printer and the copies, then prints the current layout with its pictures, each copy a job of
// its own of one page. A cancel changes nothing. A failing printer gives no message: what can be done is
// done.
void Stampa(AppState& state, const CoverSlots& slots, Printer& printer);

// Draws one sheet of the layout on the printer's page and turns the printer to it; sends nothing.
void DisegnaFoglio(AppState& state, const CoverSlots& slots, Printer& printer);

}  // namespace Morvane
