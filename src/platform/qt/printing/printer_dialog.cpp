#include "platform/qt/printing/printer_dialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>

namespace Morvane {

PrinterDialog::PrinterDialog(QPrinter& printer, const PrintDialogRequest& request,
                             std::unique_ptr<CalibrationTab> calibration, QWidget* parent)
    : QPrintDialog(&printer, parent), restricted_(request.restricted) {
  setOption(PrintToFile, false);
  setOption(PrintCollateCopies, false);
  setOption(PrintPageRange, !restricted_);
  setOption(PrintSelection, !restricted_);
  FollowPrinter(*calibration);
  setOptionTabs({calibration.release()});  // the dialog's from here
  Unfold();
}

void PrinterDialog::FollowPrinter(CalibrationTab& calibration) {
  const auto* const printers = findChild<QComboBox*>("printers");
  if (printers == nullptr) return;
  calibration.ShowPrinter(printers->currentText());
  connect(printers, &QComboBox::currentTextChanged, &calibration,
          [&calibration](const QString& chosen) { calibration.ShowPrinter(chosen); });
}

// Its button is the only one of this role.
void PrinterDialog::Unfold() {
  for (const auto* box : findChildren<QDialogButtonBox*>()) {
    for (QAbstractButton* button : box->buttons()) {
      if (box->buttonRole(button) == QDialogButtonBox::ResetRole) button->click();
    }
  }
}

// Where there is a spooler, the toolkit shows the page range although its option is off.
void PrinterDialog::setVisible(bool visible) {
  QPrintDialog::setVisible(visible);
  if (auto* range = findChild<QWidget*>("gbPrintRange"); range && restricted_) range->hide();
}

}  // namespace Morvane
