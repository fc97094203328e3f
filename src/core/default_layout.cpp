#include "core/default_layout.h"

#include "core/measures.h"

namespace Morvane {

void InstallDefaultLayout(AppState& state) {
  state.CopLarg[1] = 12.1;
  state.CopAlte[1] = 12.1;
  state.CopDistx[1] = 2.5 / kCentimetresPerInch;
  state.CopDisty[1] = 2.5 / kCentimetresPerInch;
  state.CopLarg[2] = 15;
  state.CopAlte[2] = 11.8;
  state.CopDistx[2] = state.CopDistx[1];
  state.CopDisty[2] = 15.5 / kCentimetresPerInch;
  state.NumCopertine = 2;
}

void SetWorkspacePage(AppState& state) {
  const bool landscape = state.Orientamento != 0;
  state.PaginaAlte = landscape ? 210 : 297;
  state.PaginaLarg = landscape ? 297 : 210;
}

}  // namespace Morvane
