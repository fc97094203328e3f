#include "tests/hand/hand.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <stdexcept>

#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

QWidget* OpenOver() {
  QWidget* const menu = QApplication::activePopupWidget();
  return menu == nullptr ? QApplication::activeModalWidget() : menu;
}

// Acts in the box or menu that opens over the windows, and gives the keyboard back to the one below, as a
// desktop does. What cannot be done there is read as such, and the box is closed.
class Meanwhile : public QObject {
 public:
  Meanwhile(HandWindows& windows, std::function<void(QWidget& open)> act)
      : windows_(windows), act_(std::move(act)), below_(OpenOver()), before_(std::exchange(newest_, this)) {
    connect(&watch_, &QTimer::timeout, this, [this] { Look(); });
    watch_.start(0);
  }
  ~Meanwhile() override {
    newest_ = before_;
    if (watch_.isActive()) windows_.Read.emplace_back("cannot be done", "no box came");
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      const Form* const top = windows_.TopForm();
      if (top && window->isVisible() && window->objectName().toStdString() == top->Name())
        window->activateWindow();
    }
  }

 private:
  void Look() {
    QWidget* const open = OpenOver();
    if (open == nullptr || open == below_ || newest_ != this) return;
    watch_.stop();
    try {
      act_(*open);
    } catch (const std::exception& error) {
      windows_.Read.emplace_back("cannot be done", error.what());
      auto* const box = qobject_cast<QDialog*>(open);
      box == nullptr ? static_cast<void>(open->close()) : box->reject();
    }
  }

  HandWindows& windows_;
  const std::function<void(QWidget&)> act_;
  QWidget* const below_;
  Meanwhile* const before_;
  QTimer watch_;
  static inline Meanwhile* newest_ = nullptr;  // a box may open over another
};

// A part that a box must have.
template <typename Part>
Part& Within(const QWidget& box) {
  auto* const part = box.findChild<Part*>();
  return part != nullptr ? *part : throw std::logic_error("the box lacks a part");
}

// What of the widgets or entries bears a caption, or throws.
template <typename Part>
Part& Captioned(const QList<Part*>& parts, const std::string& caption) {
  for (Part* const part : parts)
    if (part->text().remove('&').toStdString() == caption) return *part;
  throw std::logic_error("no " + caption);
}

template <typename Part>
QString CaptionsOf(const QList<Part*>& parts) {
  QStringList captions;
  for (const Part* const part : parts) captions << part->text();
  return captions.join(" | ");
}

void EndWith(QWidget& box, bool isAnswered) {
  QTest::keyClick(&box, isAnswered ? Qt::Key_Return : Qt::Key_Escape);
}

// A desktop gives the keyboard to the window that waits for its answer; the toolkit's platform for tests does
// not when a window comes back.
QWidget& WithKeyboard() {
  if (QWidget* const menu = QApplication::activePopupWidget()) return *menu;
  if (QWidget* const focused = QApplication::focusWidget()) return *focused;
  QWidget* window = QApplication::activeModalWidget();
  if (window == nullptr) window = QApplication::activeWindow();
  if (window == nullptr) throw std::logic_error("no window has the keyboard");
  QWidget* const within = window->focusWidget();
  return within == nullptr ? *window : *within;
}

}  // namespace

// Of what asks for it.
std::string HandWindows::Answer(const QString& what, const QString& text) {
  Read.emplace_back(what.toStdString(), text.toStdString());
  AtBox();
  if (Answers.empty()) throw std::logic_error("no answer to it");
  const std::string answer = Answers.front();
  Answers.pop_front();
  return answer;
}

MsgBoxAnswer HandWindows::MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string& title) {
  const Meanwhile answer(*this, [&](QWidget& open) {
    auto& box = dynamic_cast<QMessageBox&>(open);
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    if (buttons == MsgBoxButtons::Ok) Answers.emplace_front("OK");
    const std::string caption =
        Answer("box " + box.windowTitle() + " [" + CaptionsOf(box.buttons()) + "]", box.text());
    QTest::mouseClick(&Captioned(box.buttons(), caption), Qt::LeftButton);
  });
  return QtWindowSystem::MsgBox(text, buttons, title);
}

std::string HandWindows::InputBox(const std::string& prompt, const std::string& title,
                                  const std::string& defaultText) {
  const Meanwhile answer(*this, [&](const QWidget& box) {
    auto& line = Within<QLineEdit>(box);
    EXPECT_GE(line.width(), 400);  // the title fits beside a desktop's buttons
    const QString question = Within<QLabel>(box).text() + " [" + line.selectedText() + "]";
    const std::string typed = Answer(box.windowTitle() + " asks", question);
    QTest::keyClicks(&line, QString::fromStdString(typed));
    EndWith(line, !typed.empty());
  });
  return QtWindowSystem::InputBox(prompt, title, defaultText);
}

void HandWindows::PopupMenu(const std::vector<MenuItem>& items) {
  const Meanwhile choose(*this, [&](QWidget& open) {
    auto& menu = dynamic_cast<QMenu&>(open);
    const std::string choice = Answer("menu", CaptionsOf(menu.actions()));
    if (!choice.empty()) menu.setActiveAction(&Captioned(menu.actions(), choice));
    EndWith(menu, !choice.empty());
  });
  QtWindowSystem::PopupMenu(items);
}

std::string HandWindows::BrowseForFolder(const std::string& title) {
  const Meanwhile choose(*this, [&](const QWidget& chooser) {
    const std::string folder = Answer("chooser", chooser.windowTitle());
    auto& line = Within<QLineEdit>(chooser);
    const bool isBeyond = folder.starts_with('/');  // what the program knows of
    line.setText(QString::fromStdString(isBeyond ? folder : files_.ToNative(folder)));
    EndWith(line, !folder.empty());
  });
  return QtWindowSystem::BrowseForFolder(title);
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

QWidget& Find(const Control& control) {
  QWidget* const found =
      See(control.Parent().OwnerForm()).findChild<QWidget*>(QString::fromStdString(control.Name()));
  return found != nullptr ? *found : throw std::logic_error("no control " + control.Name());
}

void Click(const Control& control, double x, double y, Qt::MouseButton button) {
  QWidget& widget = See(control);
  auto* const scrolled = qobject_cast<QAbstractScrollArea*>(&widget);
  QTest::mouseClick(scrolled == nullptr ? &widget : scrolled->viewport(), button, {},
                    QPoint(ToPixels(x), ToPixels(y)));
  Settle();
}

void Press(const Control& control) {
  Click(control, control.Width() / 2, control.Height() / 2);
}

void Type(const Control& box, const QString& text) {
  Press(box);
  QTest::keyClick(&WithKeyboard(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&WithKeyboard(), Qt::Key_Delete);
  QTest::keyClicks(&WithKeyboard(), text);
  Settle();
}

void Key(const QKeySequence& keys) {
  QTest::keySequence(&WithKeyboard(), keys);
  Settle();
}

QModelIndex Row(const Control& list, const QString& text) {
  const QAbstractItemModel& model = *See<QAbstractItemView>(list).model();
  const auto found = model.match(model.index(0, 0), Qt::DisplayRole, text, 1,
                                 Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
  return found.empty() ? throw std::logic_error("no row " + text.toStdString()) : found.front();
}

void ClickRow(const Control& list, const QModelIndex& row, int x, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers) {
  auto& view = See<QAbstractItemView>(list);
  view.scrollTo(row);
  const QRect place = view.visualRect(row);
  QTest::mouseClick(view.viewport(), button, modifiers, {place.left() + x, place.center().y()});
  Settle();
}

// What boxes give back comes after their end.
void Settle() {
  for (int round = 0; round < 2; ++round) QApplication::processEvents();
}

}  // namespace Hand

}  // namespace Morvane
