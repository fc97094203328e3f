#pragma once

#include <QString>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "platform/drawing/printer_device.h"
#include "platform/qt/painting/drawing_painter.h"

class QPrinter;

namespace Morvane {

// The printers of this system, through one QPrinter that is made when it is first needed: asking the spooler
// can take seconds. Without any printer each job becomes a PDF file.
class QtPrinterDevice : public PrinterDevice {
 public:
  QtPrinterDevice();
  ~QtPrinterDevice() override;

  // Called when the sheet is another than it was.
  std::function<void()> OnSheetChanged;

  // Asks the spooler for the default printer; the sheet is A4 until then. Meant for the moment when the first
  // page is on the screen.
  void Prepare();

  // Takes a printer by its name, without a dialog. RuntimeError PrinterFailure when there is none of that
  // name.
  void SelectPrinter(const std::string& name);

  // Where jobs go when there is no printer: a native path, at first the user's documents.
  void SetPdfFolder(const QString& folder) { pdfFolder_ = folder; }

  SheetSize PortraitSheet() override { return sheet_; }
  PrintDialogAnswer ShowDialog(const PrintDialogRequest& request, PageOrientation& orientation) override;
  void SendPage(const DrawingList& page, PageOrientation orientation, const std::string& title) override;

 private:
  bool HasPrinter();
  void ReadSheet();
  PrintDialogAnswer ShowPrinterDialog(const PrintDialogRequest& request, PageOrientation& orientation);
  PrintDialogAnswer ShowPdfDialog();
  void PrintPage(const DrawingList& page, PageOrientation orientation, const std::string& title);

  std::unique_ptr<QPrinter> printer_;  // none before Prepare, and while no printer is installed
  SheetSize sheet_;
  QString pdfFolder_;
  PaintCache painted_;  // for the copies of a page, until the program is idle
  QTimer idle_;
};

}  // namespace Morvane
