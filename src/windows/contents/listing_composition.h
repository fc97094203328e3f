#pragma once

#include <string>

#include "core/app_state.h"
#include "platform/drawing/drawing_surface.h"
#include "windows/contents/listing.h"

namespace Morvane {

// What the contents window lends to a drawing of its sheet.
struct ListingSheet {
  const Listing& List1;
  const std::string& Text1;  // the title
  bool fullPaths = false;    // Check1: files with their path
};

// Draws the whole sheet on a surface whose scale is millimetres: title, listing in ElencoColonne columns on
// the front panel and then the back one, spines, outlines and footer. Screen and paper alike; `Ratio` scales
// the fonts: 1 on paper, the page set-up's result on a screen. Gives ElencoFontName "Arial" when it is empty.
// Returns the lines that found no place. RuntimeError of the surface, such as InvalidPropertyValue for a
// title too long for the spines at any size.
LineCount PrintRoutineAAAA(DrawingSurface& objPrint, double Ratio, AppState& state,
                           const ListingSheet& sheet);

}  // namespace Morvane
