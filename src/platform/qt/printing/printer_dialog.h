#pragma once

#include <QPrintDialog>

#include "platform/drawing/printer_device.h"

namespace Morvane {

// The toolkit's print dialog with its options unfolded, so that the copies are in sight. Where the request is
// restricted it offers neither a page range nor a selection, and never a file.
class PrinterDialog : public QPrintDialog {
 public:
  PrinterDialog(QPrinter& printer, const PrintDialogRequest& request, QWidget* parent);

  void setVisible(bool visible) override;

 private:
  void Unfold();

  const bool restricted_;
};

}  // namespace Morvane
