#include "platform/qt/desktop/boxes.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace Morvane {
namespace {

constexpr int kPromptWidth = 420;

constexpr std::pair<QDialogButtonBox::StandardButton, const char*> kButtonTexts[] = {
    {QDialogButtonBox::Ok, "OK"},
    {QDialogButtonBox::Cancel, "Annulla"},
    {QDialogButtonBox::Yes, "&Sì"},
    {QDialogButtonBox::No, "&No"},
};

// A box that ends without a button, as the program ends, agrees to nothing.
MsgBoxAnswer AnswerOf(int button) {
  if (button == QMessageBox::Ok) return MsgBoxAnswer::Ok;
  if (button == QMessageBox::Yes) return MsgBoxAnswer::Yes;
  return button == QMessageBox::No ? MsgBoxAnswer::No : MsgBoxAnswer::Cancel;
}

QMessageBox::StandardButtons ButtonsFor(MsgBoxButtons buttons) {
  switch (buttons) {
    case MsgBoxButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case MsgBoxButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

void NameButtons(QDialogButtonBox& buttons) {
  for (const auto& [which, text] : kButtonTexts) {
    if (QPushButton* const button = buttons.button(which)) button->setText(text);
  }
}

}  // namespace

MsgBoxAnswer ShowMessage(QWidget* parent, const std::string& text, MsgBoxButtons buttons,
                         const std::string& title) {
  QMessageBox box(parent);
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(text));
  box.setWindowTitle(QString::fromStdString(title));
  box.setStandardButtons(ButtonsFor(buttons));
  NameButtons(*box.findChild<QDialogButtonBox*>());
  return AnswerOf(box.exec());
}

std::string AskForLine(QWidget* parent, const std::string& prompt, const std::string& title,
                       const std::string& defaultText) {
  QDialog dialog(parent);
  dialog.setWindowTitle(QString::fromStdString(title));
  QVBoxLayout column(&dialog);
  QLabel question;
  question.setTextFormat(Qt::PlainText);
  question.setText(QString::fromStdString(prompt));
  question.setWordWrap(true);
  question.setMinimumWidth(kPromptWidth);
  QLineEdit answer(QString::fromStdString(defaultText));
  answer.setAccessibleName(question.text());
  answer.selectAll();
  QDialogButtonBox buttons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  NameButtons(buttons);
  QObject::connect(&buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(&buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  column.addWidget(&question);
  column.addWidget(&answer);
  column.addWidget(&buttons);
  answer.setFocus();
  return dialog.exec() == QDialog::Accepted ? answer.text().toStdString() : std::string();
}

}  // namespace Morvane
