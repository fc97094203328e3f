#include "platform/qt/desktop/boxes.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace Morvane {
namespace {

constexpr int kPromptWidth = 420;

constexpr const char* kOk = "OK";
constexpr const char* kCancel = "Annulla";

MsgBoxAnswer AnswerOf(int button) {
  if (button == QMessageBox::Cancel) return MsgBoxAnswer::Cancel;
  if (button == QMessageBox::Yes) return MsgBoxAnswer::Yes;
  return button == QMessageBox::No ? MsgBoxAnswer::No : MsgBoxAnswer::Ok;
}

void AddButtons(QMessageBox& box, MsgBoxButtons buttons) {
  if (buttons == MsgBoxButtons::YesNo) {
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.button(QMessageBox::Yes)->setText("&Sì");
    box.button(QMessageBox::No)->setText("&No");
    return;
  }
  const bool cancel = buttons == MsgBoxButtons::OkCancel;
  box.setStandardButtons(cancel ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok);
  box.button(QMessageBox::Ok)->setText(kOk);
  if (cancel) box.button(QMessageBox::Cancel)->setText(kCancel);
}

}  // namespace

MsgBoxAnswer ShowMessage(QWidget* parent, const std::string& text, MsgBoxButtons buttons,
                         const std::string& title) {
  QMessageBox box(parent);
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(text));
  box.setWindowTitle(QString::fromStdString(title));
  AddButtons(box, buttons);
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
  buttons.button(QDialogButtonBox::Ok)->setText(kOk);
  buttons.button(QDialogButtonBox::Cancel)->setText(kCancel);
  QObject::connect(&buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(&buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  column.addWidget(&question);
  column.addWidget(&answer);
  column.addWidget(&buttons);
  answer.setFocus();
  return dialog.exec() == QDialog::Accepted ? answer.text().toStdString() : std::string();
}

}  // namespace Morvane
