#pragma once

#include <array>

#include "core/app_state.h"
#include "platform/drawing/drawing_surface.h"
#include "platform/picture.h"

namespace Morvane {

// What the main window lends to every drawing of the covers.
struct CoverSlots {
  // The picture of cover n stands at n - 1; the last two are never used. Slots do not follow the layout.
  std::array<PicturePtr, 102> Image1;
  // The outline switch, Check1.
  bool outlinesOn = true;
};

// Draws all covers of the current layout, outlines, pictures and footer, on a fresh surface whose scale is
// inches of the page. Screen and paper alike. `ratio` scales the footer's font: 1 on paper, the page set-up's
// result on a screen. A statement that fails costs that statement alone. Writes CopLargPollici and
// CopAltePollici.
void DisegnaCopertine(DrawingSurface& objPrint, double ratio, AppState& state, const CoverSlots& slots);

// Frames the box of cover n, n from 1, on a surface on which the covers were just drawn.
void MarkCover(DrawingSurface& objPrint, const AppState& state, int n);

// The covers whose box holds the point strictly inside, by the sizes of the last drawing; an ellipse counts
// with its whole box. Inches of the page; n from 1. The hit tests of the workspace and of the layout preview
// share it.
bool CoverHolds(const AppState& state, int n, double x, double y);

}  // namespace Morvane
