#include "platform/qt/printing/qt_printers.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <optional>
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

RuntimeError NoSuchPrinter(const QString& queue) {
  return Failure("La stampante '" + queue + "' non esiste.");
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

// The pointer of a wait that the user did not ask for.
class Hourglass {
 public:
  Hourglass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Hourglass() { QGuiApplication::restoreOverrideCursor(); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

// The toolkit asks the service while it makes one: half a second. RuntimeError when there is none of that
// name.
std::unique_ptr<QPrinter> PrinterOf(const QString& queue) {
  TakeUpQueue(queue);
  const QPrinterInfo info = QPrinterInfo::printerInfo(queue);
  if (info.isNull()) throw NoSuchPrinter(queue);
  return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

SheetSize InTwips(const QSizeF& mm) {
  return {mm.width() * kTwipsPerMillimetre, mm.height() * kTwipsPerMillimetre};
}

// Puts the origin at the corner of the printable area and makes a unit a twip. The sheet always goes to the
// spooler in portrait with the drawing turned on it: which way a spooler turns a landscape sheet, and so
// which margins meet its corner, differs from queue to queue.
void PlaceOnSheet(QPainter& painter, const QPrinter& printer, const PrinterSheet& sheet,
                  PageOrientation orientation, const Calibration& calibration) {
  const QPointF corner = QPointF(sheet.margins.left(), sheet.margins.top()) * kTwipsPerMillimetre;
  const double cross = kCalibrationCross * kTwipsPerMillimetre;
  painter.scale(printer.logicalDpiX() / kTwipsPerInch, printer.logicalDpiY() / kTwipsPerInch);
  painter.setTransform(calibration.Correction(corner + QPointF(cross, cross)), true);
  if (orientation == PageOrientation::Portrait) {
    painter.translate(corner);
    return;
  }
  painter.translate(corner.x(), (sheet.size.height() - sheet.margins.bottom()) * kTwipsPerMillimetre);
  painter.rotate(-90);
}

}  // namespace

QtPrinters::QtPrinters()
    : sheet_(kA4), pdfFolder_(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)) {
  idle_.setSingleShot(true);
  QObject::connect(&idle_, &QTimer::timeout, &idle_, [this] { painted_.pictures.Clear(); });
  QObject::connect(&found_, &QTimer::timeout, &found_, [this] {
    if (search_.Ready()) TakeAnswer();
  });
}

QtPrinters::~QtPrinters() = default;

void QtPrinters::Prepare() {
  search_.Begin();
  found_.start(kLookMs);
}

PrintService QtPrinters::FindPrinter() {
  search_.Begin();
  return TakeAnswer();
}

// The printer that was chosen stays while the service has it.
PrintService QtPrinters::TakeAnswer() {
  found_.stop();
  const FoundPrinters found = search_.Answer(kPatience);
  queue_ = found.queue;
  if (printer_ && !found.queues.contains(printer_->printerName())) printer_.reset();
  if (!printer_) SetSheet(found.sheet);
  return found.service;
}

void QtPrinters::MakePrinter(const QString& queue) {
  printer_ = PrinterOf(queue);
  chosen_ = OwnSheet(*printer_);
  TakeChosenSheet();
}

void QtPrinters::SelectPrinter(const std::string& name) {
  if (FindPrinter() != PrintService::Answers) throw Failure(SilentServiceText());
  const QString queue = QString::fromStdString(name);
  // The spooler takes a name in any case, but a calibration is kept for the name as it stands.
  const bool exists = QPrinterInfo::availablePrinterNames().contains(queue);
  AskForPasswordsOnTheTerminal();  // the toolkit takes the question for itself when it is first used
  if (!exists) throw NoSuchPrinter(queue);
  MakePrinter(queue);
  TellIfStopped();
}

void QtPrinters::TellIfStopped() {
  if (QPrinterInfo(*printer_).state() != QPrinter::Error || !OnComplaint) return;
  const QString text =
      "La stampante '" + printer_->printerName() + "' è ferma: i lavori aspettano nella coda.";
  OnComplaint(text.toStdString());
}

void QtPrinters::TakeChosenSheet() {
  SetSheet(InTwips(TakeSheet(*printer_, chosen_).size));
}

void QtPrinters::SetSheet(SheetSize sheet) {
  if (std::exchange(sheet_, sheet) != sheet && OnSheetChanged) OnSheetChanged();
}

PrintDialogAnswer QtPrinters::ShowDialog(const PrintDialogRequest& request, PageOrientation& orientation) {
  auto hourglass = std::make_optional<Hourglass>();
  const PrintService service = FindPrinter();
  if (printer_) {
    TakeUpQueue(printer_->printerName());  // the dialog makes the toolkit look at it again
  } else if (!queue_.isEmpty()) {
    MakePrinter(queue_);
  }
  hourglass.reset();
  return printer_ ? ShowPrinterDialog(request, orientation) : ShowPdfDialog(service);
}

PrintDialogAnswer QtPrinters::ShowPrinterDialog(const PrintDialogRequest& request,
                                                PageOrientation& orientation) {
  const bool landscape = orientation == PageOrientation::Landscape;
  const QString before = printer_->printerName();
  printer_->setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  PrinterDialog* shown = nullptr;
  auto tab = std::make_unique<CalibrationTab>(
      calibrations_, [&](const QString& queue) { PrintCalibrationSheet(queue, shown->Sheet()); });
  PrinterDialog dialog(*printer_, chosen_, request, std::move(tab), QApplication::activeWindow());
  shown = &dialog;
  PrintDialogAnswer answer;
  answer.accepted = dialog.exec() == QDialog::Accepted;
  if (answer.accepted) {
    answer.copies = printer_->copyCount();
    const bool chosen = printer_->pageLayout().orientation() == QPageLayout::Landscape;
    orientation = chosen ? PageOrientation::Landscape : PageOrientation::Portrait;
    chosen_ = dialog.Sheet();
    TellIfStopped();
  } else {
    TakeUpQueue(before);
    printer_->setPrinterName(before);  // the dialog's list had changed it already
  }
  printer_->setCopyCount(1);
  TakeChosenSheet();
  return answer;
}

PrintDialogAnswer QtPrinters::ShowPdfDialog(PrintService service) {
  const QString reason =
      service == PrintService::Silent ? SilentServiceText() : "Nessuna stampante è installata.";
  PdfPrinterDialog dialog(reason, pdfFolder_, QApplication::activeWindow());
  if (dialog.exec() != QDialog::Accepted) return {};
  pdfFolder_ = dialog.Folder();
  return {true, dialog.Copies()};
}

std::vector<PicturePtr> QtPrinters::SendPage(const DrawingList& page, PageOrientation orientation,
                                             const std::string& title) {
  if (printer_) {
    const QString complaint = calibrations_.TakeComplaint();
    if (!complaint.isEmpty() && OnComplaint) OnComplaint(complaint.toStdString());
    return PrintPage(*printer_, TakeSheet(*printer_, chosen_), page, orientation, title,
                     calibrated_ ? calibrations_.Of(printer_->printerName()) : Calibration());
  }
  if (!queue_.isEmpty()) throw NoSuchPrinter(queue_);
  QDir().mkpath(pdfFolder_);
  return WritePdf(FreePdfPath(pdfFolder_, title).toStdString(), page, orientation, kA4, title);
}

// Without a correction, at the printer that the dialog shows but has not yet taken: by a printer of its own,
// so that nothing of what the dialog edits is touched.
void QtPrinters::PrintCalibrationSheet(const QString& queue, const QPageSize& size) {
  const Hourglass hourglass;
  const std::unique_ptr<QPrinter> printer = PrinterOf(queue);
  const PrinterSheet sheet = TakeSheet(*printer, size);
  const QSizeF area = sheet.size.shrunkBy(sheet.margins);
  const QtTextMetrics metrics;
  DrawingSurface page(metrics);
  page.SetSize(area.width() * kTwipsPerMillimetre, area.height() * kTwipsPerMillimetre);
  DrawCalibrationSheet(page, sheet.margins.left(), sheet.margins.top(), area.width(), area.height());
  PrintPage(*printer, sheet, page.Drawing(), PageOrientation::Portrait, "Foglio di taratura", {});
}

std::vector<PicturePtr> QtPrinters::PrintPage(QPrinter& printer, const PrinterSheet& sheet,
                                              const DrawingList& page, PageOrientation orientation,
                                              const std::string& title, const Calibration& calibration) {
  printer.setDocName(QString::fromStdString(title));
  printer.setCopyCount(1);
  KeepTrueScale(printer);
  QPainter painter;
  if (!painter.begin(&printer)) {
    throw Failure("La stampante '" + printer.printerName() + "' non risponde.");
  }
  PlaceOnSheet(painter, printer, sheet, orientation, calibration);
  std::vector<PicturePtr> undecodable = PaintDrawing(painter, page, painted_);
  idle_.start();
  if (!painter.end() || printer.printerState() == QPrinter::Error) {
    throw Failure("La stampante '" + printer.printerName() + "' ha interrotto il lavoro.");
  }
  const QString failure = LastSpoolerFailure();
  if (failure.isEmpty()) return undecodable;
  throw Failure("La stampante '" + printer.printerName() + "' ha rifiutato il lavoro: " + failure);
}

}  // namespace Morvane
