#pragma once

#include <QPageSize>
#include <QString>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "platform/drawing/printers.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/qt/printing/calibration.h"
#include "platform/qt/printing/printer_search.h"
#include "platform/qt/printing/printer_sheet.h"

class QPrinter;

namespace Morvane {

// The printers of this system, through one QPrinter, which a print command makes when it first needs it.
// Whether the print service answers, and with which sheet, is asked on a thread of its own: it can take
// seconds, or for ever. Without any printer, and while the service is silent, each job becomes a PDF file.
class QtPrinters : public Printers {
 public:
  QtPrinters();
  ~QtPrinters() override;

  // Called when the sheet is another than it was.
  std::function<void()> OnSheetChanged;
  // Called with what the user must know beside the result of a call.
  std::function<void(const std::string& text)> OnComplaint;

  // Begins to look for the default queue; the sheet is A4 until its own is known. For the moment when the
  // first page is on the screen.
  void Prepare();

  // Takes a printer by its name, without a dialog; a password is asked for on the terminal. RuntimeError
  // PrinterFailure when there is none of that name, or the service does not answer.
  void SelectPrinter(const std::string& name);

  // Prints as if no printer had been calibrated.
  void LeaveOutCalibration() { calibrated_ = false; }

  // Where jobs go when there is no printer: a native path, at first the user's documents.
  void SetPdfFolder(const QString& folder) { pdfFolder_ = folder; }

  SheetSize PortraitSheet() override { return sheet_; }
  PrintDialogAnswer ShowDialog(const PrintDialogRequest& request, PageOrientation& orientation) override;
  std::vector<PicturePtr> SendPage(const DrawingList& page, PageOrientation orientation,
                                   const std::string& title) override;

 private:
  PrintService FindPrinter();
  PrintService TakeAnswer();
  void MakePrinter(const QString& queue);
  void TakeChosenSheet();
  void TellIfStopped();
  void SetSheet(SheetSize sheet);
  PrintDialogAnswer ShowPrinterDialog(const PrintDialogRequest& request, PageOrientation& orientation);
  PrintDialogAnswer ShowPdfDialog(PrintService service);
  void PrintCalibrationSheet(const QString& queue, const QPageSize& sheet);
  std::vector<PicturePtr> PrintPage(QPrinter& printer, const PrinterSheet& sheet, const DrawingList& page,
                                    PageOrientation orientation, const std::string& title,
                                    const Calibration& calibration);

  PrinterSearch search_;
  QTimer found_;                       // looks whether the search that Prepare began has its answer
  QString queue_;                      // found last; empty where there is none
  std::unique_ptr<QPrinter> printer_;  // none until a print command needs it, and where there is none
  QPageSize chosen_;                   // the sheet of printer_, which the toolkit does not always keep
  SheetSize sheet_;
  Calibrations calibrations_;
  bool calibrated_ = true;
  QString pdfFolder_;
  PaintCache painted_;  // for the copies of a page, until the program is idle
  QTimer idle_;
};

}  // namespace Morvane
