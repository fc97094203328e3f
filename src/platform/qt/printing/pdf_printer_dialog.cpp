#include "platform/qt/printing/pdf_printer_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace Morvane {
namespace {

constexpr int kMostCopies = 999;

}  // namespace

PdfPrinterDialog::PdfPrinterDialog(const QString& reason, const QString& folder, QWidget* parent)
    : QDialog(parent),
      copies_(new QSpinBox(this)),
      folderLine_(new QLineEdit(folder, this)),
      message_(new QLabel(this)) {
  setWindowTitle("Stampa");
  copies_->setRange(1, kMostCopies);
  folderLine_->setReadOnly(true);
  folderLine_->setAccessibleName("Cartella");

  auto* change = new QPushButton("Ca&mbia...", this);
  connect(change, &QPushButton::clicked, this, [this] { ChooseFolder(); });
  auto* folderRow = new QHBoxLayout;
  folderRow->addWidget(folderLine_, 1);
  folderRow->addWidget(change);

  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton("&Stampa", QDialogButtonBox::AcceptRole);
  buttons->addButton("&Annulla", QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* form = new QFormLayout(this);
  form->addRow(new QLabel(reason, this));
  form->addRow(
      new QLabel("Ogni copia diventa un file PDF di formato A4 senza margini,\n"
                 "da stampare al 100 %.",
                 this));
  form->addRow("Numero di &copie:", copies_);
  form->addRow("Cartella:", folderRow);
  form->addRow(message_);
  form->addRow(buttons);
}

void PdfPrinterDialog::accept() {
  if (QDir().mkpath(Folder()) && QFileInfo(Folder()).isWritable()) return QDialog::accept();
  message_->setText("In questa cartella non si può scrivere: scegliere un'altra cartella.");
}

int PdfPrinterDialog::Copies() const {
  return copies_->value();
}

QString PdfPrinterDialog::Folder() const {
  return folderLine_->text();
}

void PdfPrinterDialog::ChooseFolder() {
  const QString chosen = QFileDialog::getExistingDirectory(this, "Cartella dei file PDF", Folder());
  if (chosen.isEmpty()) return;
  folderLine_->setText(chosen);
  message_->clear();
}

}  // namespace Morvane
