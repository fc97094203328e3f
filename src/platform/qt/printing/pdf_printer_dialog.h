#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QLineEdit;
class QSpinBox;

namespace Morvane {

// The print dialog where no printer can be had: tells why, and that each job becomes a PDF file, and asks for
// the copies and the folder, which is made where it is missing. It is not left to print into a folder that
// can't be written.
class PdfPrinterDialog : public QDialog {
 public:
  PdfPrinterDialog(const QString& reason, const QString& folder, QWidget* parent);

  int Copies() const;
  QString Folder() const;
  void accept() override;

 private:
  void ChooseFolder();

  QSpinBox* copies_;
  QLineEdit* folderLine_;  // a long path scrolls in it
  QLabel* message_;
};

}  // namespace Morvane
