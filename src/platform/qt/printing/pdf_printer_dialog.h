#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QSpinBox;

namespace Morvane {

// The print dialog of a machine without printers: tells that each job becomes a PDF file, and asks for the
// copies and the folder.
class PdfPrinterDialog : public QDialog {
 public:
  PdfPrinterDialog(const QString& folder, QWidget* parent);

  int Copies() const;
  const QString& Folder() const { return folder_; }

 private:
  void ChooseFolder();

  QString folder_;
  QSpinBox* copies_;
  QLabel* folderLabel_;
};

}  // namespace Morvane
