#pragma once

#include <QPrintDialog>
#include <memory>

#include "platform/drawing/printer_device.h"
#include "platform/qt/printing/calibration_tab.h"

namespace Morvane {

// The toolkit's print dialog with its options unfolded, so that the copies are in sight. Where the request is
// restricted it offers neither a page range nor a selection, and never a file.
class PrinterDialog : public QPrintDialog {
 public:
  // `calibration` becomes a tab of it, for the printer that is chosen.
  PrinterDialog(QPrinter& printer, const PrintDialogRequest& request,
                std::unique_ptr<CalibrationTab> calibration, QWidget* parent);

  void setVisible(bool visible) override;

 private:
  void Unfold();
  void FollowPrinter(CalibrationTab& calibration);

  const bool restricted_;
};

}  // namespace Morvane
