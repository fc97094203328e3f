#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QSpinBox;

namespace Morvane {

// The print dialog where no printer can be had: tells why, and that each job becomes a PDF file, and asks for
// the copies and the folder.
class PdfPrinterDialog : public QDialog {
 public:
  PdfPrinterDialog(const QString& reason, const QString& folder, QWidget* parent);

  int Copies() const;
  const QString& Folder() const { return folder_; }

 private:
  void ChooseFolder();

  QString folder_;
  QSpinBox* copies_;
  QLabel* folderLabel_;
};

}  // namespace Morvane
