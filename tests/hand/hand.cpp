#include "tests/hand/hand.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <stdexcept>

namespace Morvane {
namespace {

// What of the buttons or entries bears a caption, or throws.
template <typename Part>
Part& Captioned(const QList<Part*>& parts, const std::string& caption) {
  for (Part* const part : parts)
    if (part->text().remove('&').toStdString() == caption) return *part;
  throw std::logic_error("no " + caption);
}

template <typename Part>
QString CaptionsOf(const QList<Part*>& parts) {
  QStringList captions;
  for (const Part* const part : parts) captions << (part->text().isEmpty() ? "-" : part->text());
  return captions.join(" | ");
}

}  // namespace

HandWindows::HandWindows(FileSystem& files) : QtWindowSystem(files), files_(files) {
  qApp->installEventFilter(this);
}

// What opens over the windows is answered as soon as it is there. The menu of a bar or button is left to the
// keys, unless an answer waits for it.
bool HandWindows::eventFilter(QObject* opened, QEvent* event) {
  if (event->type() != QEvent::Show || Ended()) return false;
  const bool isMenu = qobject_cast<QMenu*>(opened) != nullptr;
  if (qobject_cast<QDialog*>(opened) != nullptr ||
      (isMenu && (opened->parent() == nullptr || !Answers.empty())))
    QTimer::singleShot(0, opened, [this, opened] { Reply(static_cast<QWidget&>(*opened)); });
  return false;
}

// Gives the keyboard back to the window below, as a desktop does. What cannot be done is read as such.
void HandWindows::Reply(QWidget& open) {
  try {
    if (auto* const box = qobject_cast<QMessageBox*>(&open))
      ReplyTo(*box);
    else if (auto* const menu = qobject_cast<QMenu*>(&open))
      ReplyTo(*menu);
    else
      ReplyInLine(open);
  } catch (const std::exception& error) {
    Read.emplace_back("cannot be done", error.what());
    QTest::keyClick(&open, Qt::Key_Escape);
  }
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (TopForm() != nullptr && window->isVisible() &&
        window->objectName().toStdString() == TopForm()->Name())
      window->activateWindow();
}

void HandWindows::ReplyTo(const QMessageBox& box) {
  EXPECT_EQ(box.textFormat(), Qt::PlainText);
  if (box.buttons().size() == 1) Answers.emplace_front("OK");
  const QString what = "box " + box.windowTitle() + " [" + CaptionsOf(box.buttons()) + "]";
  QTest::mouseClick(&Captioned(box.buttons(), Answer(what, box.text())), Qt::LeftButton);
}

void HandWindows::ReplyTo(QMenu& menu) {
  const std::string choice = Answer("menu", CaptionsOf(menu.actions()));
  if (!choice.empty()) menu.setActiveAction(&Captioned(menu.actions(), choice));
  QTest::keyClick(&menu, choice.empty() ? Qt::Key_Escape : Qt::Key_Return);
}

// A prompt, or the chooser of folders; '/' begins one that the program doesn't know of.
void HandWindows::ReplyInLine(const QWidget& open) {
  auto& line = *open.findChild<QLineEdit*>();
  std::string text;
  if (const auto* const prompt = qobject_cast<const QInputDialog*>(&open)) {
    EXPECT_GE(line.width(), 400);  // the title fits beside a desktop's buttons
    text = Answer(open.windowTitle() + " asks", prompt->labelText() + " [" + line.selectedText() + "]");
  } else {
    text = Answer("chooser", open.windowTitle());
    if (!text.empty() && !text.starts_with('/')) text = files_.ToNative(text);
  }
  line.setText(QString::fromStdString(text));
  QTest::keyClick(&line, text.empty() ? Qt::Key_Escape : Qt::Key_Return);
}

// Of what asks for it.
std::string HandWindows::Answer(const QString& what, const QString& text) {
  Read.emplace_back(what.toStdString(), text.toStdString());
  AtBox();
  if (Answers.empty()) throw std::logic_error("no answer to it");
  const std::string answer = Answers.front();
  Answers.pop_front();
  return answer;
}

void HandWindows::RunModal(Form& form) {
  QTimer::singleShot(0, qApp, [this, &form] { Play(form); });
  QtWindowSystem::RunModal(form);
}

namespace Hand {

QWidget& See(const Form& form) {
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->objectName().toStdString() == form.Name()) return *window;
  throw std::logic_error("no window " + form.Name());
}

QWidget& See(const Control& control) {
  QWidget* const found =
      See(control.Parent().OwnerForm()).findChild<QWidget*>(QString::fromStdString(control.Name()));
  return found != nullptr ? *found : throw std::logic_error("no control " + control.Name());
}

// What boxes give back comes after their end.
void Settle() {
  for (int round = 0; round < 2; ++round) QApplication::processEvents();
}

}  // namespace Hand

}  // namespace Morvane
