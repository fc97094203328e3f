#include "platform/qt/printing/qt_printer_device.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <utility>

#include "platform/drawing/calibration_sheet.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "platform/qt/printing/pdf_printer_dialog.h"
#include "platform/qt/printing/printer_dialog.h"
#include "platform/qt/printing/spooler.h"
#include "platform/runtime_error.h"
#include "platform/units.h"

namespace Morvane {
namespace {

constexpr int kLookMs = 50;
// From the print command to a dialog, with a service that is silent.
constexpr std::chrono::milliseconds kPatience(2000);

RuntimeError Failure(const QString& text) {
  return RuntimeError(ErrorNumber::PrinterFailure, text.toStdString());
}

// A file of the folder that isn't there yet, named after the job and numbered from the second on.
QString FreePdfPath(const QString& folder, const std::string& title) {
  QString name = QString::fromStdString(title).simplified();
  name.replace('/', '-');
  while (name.startsWith('.')) name.remove(0, 1);
  if (name.isEmpty()) name = "Morvane";
  const QString stem = folder + '/' + name;
  QString path = stem + ".pdf";
  for (int number = 1; QFileInfo(path).exists() || QFileInfo(path).isSymLink(); ++number) {
    path = stem + ' ' + QString::number(number) + ".pdf";
  }
  return path;
}

// Of the upright sheet.
QMarginsF MarginsMm(const QPrinter& printer) {
  const QMarginsF points = printer.pageLayout().minimumMargins();
  return points * (kTwipsPerPoint / kTwipsPerMillimetre);
}

QSizeF SheetMm(const QPrinter& printer) {
  return printer.pageLayout().pageSize().size(QPageSize::Millimeter);
}

// For a printer that took another's place: the toolkit keeps the sheet of the one before, even one that this
// one does not take.
void TakeFittingSheet(QPrinter& printer) {
  const QPageSize kept = printer.pageLayout().pageSize();
  if (!QPrinterInfo(printer).supportedPageSizes().contains(kept)) TakeOwnSheet(printer);
}

// Puts the origin at the corner of the printable area and makes a unit a twip. The sheet always goes to the
// spooler in portrait with the drawing turned on it: which way a spooler turns a landscape sheet, and so
// which margins meet its corner, differs from queue to queue.
void PlaceOnSheet(QPainter& painter, QPrinter& printer, PageOrientation orientation,
                  const Calibration& calibration) {
  const QMarginsF margins = MarginsMm(printer);
  const QPointF corner(margins.left() * kTwipsPerMillimetre, margins.top() * kTwipsPerMillimetre);
  const double cross = kCalibrationCross * kTwipsPerMillimetre;
  painter.scale(printer.logicalDpiX() / kTwipsPerInch, printer.logicalDpiY() / kTwipsPerInch);
  painter.setTransform(calibration.Correction(corner + QPointF(cross, cross)), true);
  if (orientation == PageOrientation::Portrait) {
    painter.translate(corner);
    return;
  }
  painter.translate(corner.x(), (SheetMm(printer).height() - margins.bottom()) * kTwipsPerMillimetre);
  painter.rotate(-90);
}

}  // namespace

QtPrinterDevice::QtPrinterDevice()
    : sheet_(kA4), pdfFolder_(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)) {
  idle_.setSingleShot(true);
  QObject::connect(&idle_, &QTimer::timeout, &idle_, [this] { painted_.pictures.Clear(); });
  QObject::connect(&found_, &QTimer::timeout, &found_, [this] {
    if (!search_.Ready()) return;
    FindPrinter();
    ReadSheet();
  });
}

QtPrinterDevice::~QtPrinterDevice() = default;

void QtPrinterDevice::Prepare() {
  search_.Begin(true);
  found_.start(kLookMs);
}

// The printer that was chosen stays while the service has any.
PrintService QtPrinterDevice::FindPrinter() {
  found_.stop();
  search_.Begin(!printer_);
  const FoundPrinters found = search_.Answer(kPatience);
  if (!found.any) printer_.reset();
  if (found.printer) printer_ = found.printer;
  return found.service;
}

void QtPrinterDevice::SelectPrinter(const std::string& name) {
  const QString wanted = QString::fromStdString(name);
  if (FindPrinter() != PrintService::Answers) throw Failure(SilentServiceText());
  if (!printer_ || !QPrinterInfo::availablePrinterNames().contains(wanted)) {
    throw Failure("La stampante '" + wanted + "' non esiste.");
  }
  printer_->setPrinterName(wanted);
  TakeOwnSheet(*printer_);
  ReadSheet();
}

void QtPrinterDevice::ReadSheet() {
  SheetSize sheet = kA4;
  if (printer_) {
    const QSizeF mm = printer_->pageLayout().pageSize().size(QPageSize::Millimeter);
    if (!mm.isEmpty()) sheet = {mm.width() * kTwipsPerMillimetre, mm.height() * kTwipsPerMillimetre};
  }
  if (std::exchange(sheet_, sheet) != sheet && OnSheetChanged) OnSheetChanged();
}

PrintDialogAnswer QtPrinterDevice::ShowDialog(const PrintDialogRequest& request,
                                              PageOrientation& orientation) {
  const PrintService service = FindPrinter();
  const PrintDialogAnswer answer =
      printer_ ? ShowPrinterDialog(request, orientation) : ShowPdfDialog(service);
  ReadSheet();
  return answer;
}

PrintDialogAnswer QtPrinterDevice::ShowPrinterDialog(const PrintDialogRequest& request,
                                                     PageOrientation& orientation) {
  const bool landscape = orientation == PageOrientation::Landscape;
  printer_->setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  auto tab = std::make_unique<CalibrationTab>(
      calibrations_, [this](const QString& printer) { PrintCalibrationSheet(printer); });
  const QString before = printer_->printerName();
  PrinterDialog dialog(*printer_, request, std::move(tab), QApplication::activeWindow());
  PrintDialogAnswer answer;
  answer.accepted = dialog.exec() == QDialog::Accepted;
  if (answer.accepted) {
    if (printer_->printerName() != before) TakeFittingSheet(*printer_);
    answer.copies = printer_->copyCount();
    const bool chosen = printer_->pageLayout().orientation() == QPageLayout::Landscape;
    orientation = chosen ? PageOrientation::Landscape : PageOrientation::Portrait;
  }
  printer_->setCopyCount(1);
  printer_->setPageOrientation(QPageLayout::Portrait);
  return answer;
}

PrintDialogAnswer QtPrinterDevice::ShowPdfDialog(PrintService service) {
  const QString reason =
      service == PrintService::Silent ? SilentServiceText() : "Nessuna stampante è installata.";
  PdfPrinterDialog dialog(reason, pdfFolder_, QApplication::activeWindow());
  if (dialog.exec() != QDialog::Accepted) return {};
  pdfFolder_ = dialog.Folder();
  return {true, dialog.Copies()};
}

void QtPrinterDevice::SendPage(const DrawingList& page, PageOrientation orientation,
                               const std::string& title) {
  if (printer_) {
    const QString complaint = calibrations_.TakeComplaint();
    if (!complaint.isEmpty() && OnComplaint) OnComplaint(complaint.toStdString());
    PrintPage(page, orientation, title,
              calibrated_ ? calibrations_.Of(printer_->printerName()) : Calibration());
    return;
  }
  QDir().mkpath(pdfFolder_);
  WritePdf(FreePdfPath(pdfFolder_, title).toStdString(), page, orientation, kA4, title);
}

// Without a correction, at the printer that the dialog shows but has not yet taken.
void QtPrinterDevice::PrintCalibrationSheet(const QString& printer) {
  const QString chosen = printer_->printerName();
  const QPageSize sheetOfChosen = printer_->pageLayout().pageSize();
  printer_->setPrinterName(printer);
  if (printer != chosen) TakeFittingSheet(*printer_);
  const QMarginsF margins = MarginsMm(*printer_);
  const QSizeF size = SheetMm(*printer_).shrunkBy(margins);
  const QtTextMetrics metrics;
  DrawingSurface sheet(metrics);
  sheet.SetSize(size.width() * kTwipsPerMillimetre, size.height() * kTwipsPerMillimetre);
  DrawCalibrationSheet(sheet, margins.left(), margins.top(), size.width(), size.height());
  PrintPage(sheet.Drawing(), PageOrientation::Portrait, "Foglio di taratura", {});
  printer_->setPrinterName(chosen);
  printer_->setPageSize(sheetOfChosen);
}

void QtPrinterDevice::PrintPage(const DrawingList& page, PageOrientation orientation,
                                const std::string& title, const Calibration& calibration) {
  printer_->setDocName(QString::fromStdString(title));
  printer_->setCopyCount(1);
  printer_->setFullPage(true);
  printer_->setPageOrientation(QPageLayout::Portrait);
  KeepTrueScale(*printer_);
  QPainter painter;
  if (!painter.begin(printer_.get())) {
    throw Failure("La stampante '" + printer_->printerName() + "' non risponde.");
  }
  PlaceOnSheet(painter, *printer_, orientation, calibration);
  PaintDrawing(painter, page, painted_);
  idle_.start();
  if (!painter.end() || printer_->printerState() == QPrinter::Error) {
    throw Failure("La stampante '" + printer_->printerName() + "' ha interrotto il lavoro.");
  }
  const QString failure = LastSpoolerFailure();
  if (failure.isEmpty()) return;
  throw Failure("La stampante '" + printer_->printerName() + "' ha rifiutato il lavoro: " + failure);
}

}  // namespace Morvane
