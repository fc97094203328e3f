#pragma once

#include "core/app_state.h"

namespace Morvane {

// Each drawing repairs the shared font size first: 0 becomes 8, anything else below 2 becomes 2.
inline void RepairListingFontSize(AppState& state) {
  if (state.ElencoFontSize == 0) state.ElencoFontSize = 8;
  if (state.ElencoFontSize < 2) state.ElencoFontSize = 2;
}

inline void RepairListingFont(AppState& state) {
  RepairListingFontSize(state);
  if (state.ElencoFontName.empty()) state.ElencoFontName = "Arial";
}

}  // namespace Morvane
