#pragma once

#include "core/app_state.h"

namespace Morvane {

// The two covers that a run starts with, a square front above a back. Shapes stay as they are.
void InstallDefaultLayout(AppState& state);

// PaginaLarg and PaginaAlte of the A4 sheet. Anything but 0 in Orientamento is landscape here, while the
// drawing takes anything but 1 as portrait.
void SetWorkspacePage(AppState& state);

}  // namespace Morvane
