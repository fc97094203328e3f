#include "render/print_job.h"

#include "platform/resume_next.h"

namespace Morvane {

namespace {

constexpr double kLandscapePageHeight = 210;  // millimetres

// 0,0 is the corner of the printable area; no margin is added or taken away.
void PreparePage(AppState& state, Printer& printer) {
  printer.Surface().SetScaleMode(ScaleMode::Inches);
  printer.SetOrientation(state.PaginaAlte == kLandscapePageHeight ? PageOrientation::Landscape
                                                                  : PageOrientation::Portrait);
  state.SuSchermo = 0;
}

// A dialog that fails leaves its one copy to be printed; only a cancel prints nothing.
PrintDialogAnswer AskBeforePrinting(Printer& printer) {
  try {
    return printer.ShowDialog({.restricted = true});
  } catch (const RuntimeError&) {
    return {.accepted = true};
  }
}

}  // namespace

void DisegnaFoglio(AppState& state, const CoverSlots& slots, Printer& printer) {
  PreparePage(state, printer);
  DisegnaCopertine(printer.Surface(), 1.0, state, slots);
}

void Stampa(AppState& state, const CoverSlots& slots, Printer& printer) {
  const PrintDialogAnswer answer = AskBeforePrinting(printer);
  if (!answer.accepted) return;
  PreparePage(state, printer);
  for (int copy = 1; copy <= answer.copies; ++copy) {
    DisegnaCopertine(printer.Surface(), 1.0, state, slots);
    ResumeNext([&] { printer.EndDoc(); });
  }
}

}  // namespace Morvane
