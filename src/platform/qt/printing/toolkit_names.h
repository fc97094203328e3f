#pragma once

#include <QPrintEngine>

// What printing uses of the toolkit beyond its documented interface. Each name may be missing in another
// version of it; what then happens to a sheet stands beside it.
namespace Morvane::ToolkitNames {

// The list of names and values that a job tells the spooler. Without it the spooler is not told to leave the
// scale alone: where a queue is set to fit sheets to its paper, a sheet comes out smaller.
inline constexpr auto kSpoolerOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

// The print dialog's list of printers. Without it the tab of the calibration stays with the printer that was
// the dialog's at first.
inline constexpr char kPrinters[] = "printers";

// The print dialog's page range. Without it the range is offered where it means nothing.
inline constexpr char kPageRange[] = "gbPrintRange";

// The list of sheets in the dialog's "Properties". Without it a sheet chosen there is not taken: the job goes
// on the one before, which is what the preview shows, with its margins.
inline constexpr char kPageSizes[] = "pageSizeCombo";

}  // namespace Morvane::ToolkitNames
