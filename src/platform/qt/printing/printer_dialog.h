#pragma once

#include <QComboBox>
#include <QPageSize>
#include <QPointer>
#include <QPrintDialog>
#include <memory>

#include "platform/drawing/printers.h"
#include "platform/qt/printing/calibration_tab.h"

namespace Morvane {

// The toolkit's print dialog with its options unfolded, so that the copies are in sight. Where the request is
// restricted it offers neither a page range nor a selection, and never a file. Its "Properties" open with the
// sheet in use; the toolkit's own begin with the queue's each time, and what is chosen there the toolkit may
// refuse for the rounding of the margins.
class PrinterDialog : public QPrintDialog {
 public:
  // `calibration` becomes a tab of it, for the printer that is chosen.
  PrinterDialog(QPrinter& printer, const QPageSize& sheet, const PrintDialogRequest& request,
                std::unique_ptr<CalibrationTab> calibration, QWidget* parent);

  // The sheet in use for the printer that is chosen: what its "Properties" show, where the user opened them.
  QPageSize Sheet() const;

  void setVisible(bool visible) override;

 protected:
  void childEvent(QChildEvent* event) override;

 private:
  void Unfold();
  void FollowPrinter(CalibrationTab& calibration);

  const QString first_;    // the printer in use until now,
  const QPageSize sheet_;  // and its sheet
  const bool restricted_;
  QPointer<QComboBox> shownSizes_;  // of the printer's properties, while they hold
};

}  // namespace Morvane
