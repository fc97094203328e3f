#pragma once

#include <QString>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "platform/drawing/printer_device.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/qt/printing/calibration.h"
#include "platform/qt/printing/printer_search.h"

class QPrinter;

namespace Morvane {

// The printers of this system, through one QPrinter. Asking the print service can take seconds, or for ever:
// that happens on a thread of its own. Without any printer, and while the service is silent, each job becomes
// a PDF file.
class QtPrinterDevice : public PrinterDevice {
 public:
  QtPrinterDevice();
  ~QtPrinterDevice() override;

  // Called when the sheet is another than it was.
  std::function<void()> OnSheetChanged;
  // Called with what the user must know beside the result of a call.
  std::function<void(const std::string& text)> OnComplaint;

  // Begins to look for the default printer; the sheet is A4 until it is found. For the moment when the first
  // page is on the screen.
  void Prepare();

  // Takes a printer by its name, without a dialog. RuntimeError PrinterFailure when there is none of that
  // name, or the service does not answer.
  void SelectPrinter(const std::string& name);

  // Prints as if no printer had been calibrated.
  void LeaveOutCalibration() { calibrated_ = false; }

  // Where jobs go when there is no printer: a native path, at first the user's documents.
  void SetPdfFolder(const QString& folder) { pdfFolder_ = folder; }

  SheetSize PortraitSheet() override { return sheet_; }
  PrintDialogAnswer ShowDialog(const PrintDialogRequest& request, PageOrientation& orientation) override;
  void SendPage(const DrawingList& page, PageOrientation orientation, const std::string& title) override;

 private:
  PrintService FindPrinter();
  void ReadSheet();
  PrintDialogAnswer ShowPrinterDialog(const PrintDialogRequest& request, PageOrientation& orientation);
  PrintDialogAnswer ShowPdfDialog(PrintService service);
  void PrintCalibrationSheet(const QString& printer);
  void PrintPage(const DrawingList& page, PageOrientation orientation, const std::string& title,
                 const Calibration& calibration);

  PrinterSearch search_;
  QTimer found_;                       // looks whether the search that Prepare began has its answer
  std::shared_ptr<QPrinter> printer_;  // none while no printer is known
  SheetSize sheet_;
  Calibrations calibrations_;
  bool calibrated_ = true;
  QString pdfFolder_;
  PaintCache painted_;  // for the copies of a page, until the program is idle
  QTimer idle_;
};

}  // namespace Morvane
