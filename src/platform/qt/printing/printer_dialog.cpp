#include "platform/qt/printing/printer_dialog.h"

#include <QAbstractButton>
#include <QChildEvent>
#include <QDialogButtonBox>
#include <QLayout>
#include <QPrinter>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>

#include "platform/qt/printing/printer_sheet.h"
#include "platform/qt/printing/spooler.h"
#include "platform/qt/printing/toolkit_names.h"

namespace Morvane {
namespace {

// The printer's properties are higher than a small screen, or a large one at a large scale. There all but the
// buttons scrolls.
void FitScreen(QDialog& properties) {
  auto* const tabs = properties.findChild<QTabWidget*>();
  const QStyle& style = *properties.style();
  const QRect desk = properties.screen()->availableGeometry();
  const int room = desk.height() - style.pixelMetric(QStyle::PM_TitleBarHeight);
  if (tabs == nullptr || properties.sizeHint().height() <= room) return;
  auto* const area = new QScrollArea(tabs->parentWidget());
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setMinimumWidth(tabs->sizeHint().width() + style.pixelMetric(QStyle::PM_ScrollBarExtent));
  const std::unique_ptr<QLayoutItem> before(tabs->parentWidget()->layout()->replaceWidget(tabs, area));
  area->setWidget(tabs);
  area->show();
  properties.layout()->activate();
  properties.setGeometry(properties.x(), desk.bottom() - room, properties.sizeHint().width(), room);
}

}  // namespace

PrinterDialog::PrinterDialog(QPrinter& printer, const QPageSize& sheet, const PrintDialogRequest& request,
                             std::unique_ptr<CalibrationTab> calibration, QWidget* parent)
    : QPrintDialog(&printer, parent),
      first_(printer.printerName()),
      sheet_(sheet),
      restricted_(request.restricted) {
  setOption(PrintToFile, false);
  setOption(PrintCollateCopies, false);
  setOption(PrintPageRange, !restricted_);
  setOption(PrintSelection, !restricted_);
  FollowPrinter(*calibration);
  setOptionTabs({calibration.release()});  // the dialog's from here
  Unfold();
}

void PrinterDialog::FollowPrinter(CalibrationTab& calibration) {
  calibration.ShowPrinter(printer()->printerName());
  auto* const printers = findChild<QComboBox*>(ToolkitNames::kPrinters);
  if (printers == nullptr) return;
  connect(printers, &QComboBox::currentTextChanged, &calibration,
          [&calibration](const QString& chosen) { calibration.ShowPrinter(chosen); });
  connect(printers, &QComboBox::currentIndexChanged, this, [this, printers](int chosen) {
    if (chosen < 0 || !TakeUpQueue(printers->currentText())) return;
    // The toolkit has looked at it already, and looks again only after another.
    printers->setCurrentIndex(-1);
    printer()->setPrinterName(printers->itemText(chosen == 0 ? 1 : 0));
    printers->setCurrentIndex(chosen);
  });
}

// Its button is the only one of this role.
void PrinterDialog::Unfold() {
  for (const auto* box : findChildren<QDialogButtonBox*>()) {
    for (QAbstractButton* button : box->buttons()) {
      if (box->buttonRole(button) == QDialogButtonBox::ResetRole) button->click();
    }
  }
}

// The list of the printer's properties does not hold what another dialog chose.
void PrinterDialog::childEvent(QChildEvent* event) {
  QPrintDialog::childEvent(event);
  if (event->type() != QEvent::ChildPolished || shownSizes_) return;
  shownSizes_ = event->child()->findChild<QComboBox*>(ToolkitNames::kPageSizes);
  if (!shownSizes_) return;
  const int inUse = shownSizes_->findData(QVariant::fromValue(FittingSheet(*printer(), sheet_)));
  if (inUse >= 0) shownSizes_->setCurrentIndex(inUse);
  // Left by Cancel, they go back to what the toolkit began with: the queue's own sheet.
  auto* const properties = qobject_cast<QDialog*>(event->child());
  if (properties == nullptr) return;
  QTimer::singleShot(0, properties, [properties] { FitScreen(*properties); });  // when it has its own size
  connect(properties, &QDialog::finished, shownSizes_,
          [sizes = shownSizes_.data(), kept = inUse](int result) mutable {
            if (result == QDialog::Accepted) kept = sizes->currentIndex();
            if (kept >= 0) sizes->setCurrentIndex(kept);
          });
}

QPageSize PrinterDialog::Sheet() const {
  if (!shownSizes_ && printer()->printerName() == first_) return sheet_;
  if (!shownSizes_) return FittingSheet(*printer(), sheet_);
  const auto listed = shownSizes_->currentData().value<QPageSize>();
  return listed.isValid() ? listed : printer()->pageLayout().pageSize();  // of the user's own measures
}

// Where there is a spooler, the toolkit shows the page range although its option is off.
void PrinterDialog::setVisible(bool visible) {
  QPrintDialog::setVisible(visible);
  if (auto* range = findChild<QWidget*>(ToolkitNames::kPageRange); range && restricted_) range->hide();
}

}  // namespace Morvane
