#pragma once

#include <string_view>

#include "core/app_state.h"
#include "platform/files/file_system.h"

namespace Morvane {

// Told of the page and of each cover right after it was stored, while the file is still being read. May
// itself change the state.
class LayoutObserver {
 public:
  virtual ~LayoutObserver() = default;

  virtual void PaginaRead() = 0;
  virtual void CopertinaRead(int n) = 0;
};

// Reads a layout file into the tables, NumCopertine (the number of the last Copertina line) and Orientamento,
// for covers 1 to MaxCopertine, and into lastRead. What the file lacks stays as it was; unknown lines and
// keys are dropped.
// `observer` may be null. RuntimeError, naming NomeLayout and the line: InvalidProcedureCall for a line that
// begins like a key and has no "=", Overflow for a Pagina outside 16 bits. After any failure, the observer's
// own included, the LayoutTables of `state` are as they were before; what an observer did elsewhere is for it
// to undo.
void ReadLayout(InputFile& file, AppState& state, LayoutObserver* observer = nullptr);

}  // namespace Morvane
