#include "tests/hand/hand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <stdexcept>
#include <utility>

#include "platform/qt/views/view_text.h"

namespace Morvane {

namespace {

constexpr int kRepeats = 3;

// What of a control the mouse hits.
QWidget& Surface(QWidget& widget) {
  auto* const scrolled = qobject_cast<QAbstractScrollArea*>(&widget);
  return scrolled == nullptr ? widget : *scrolled->viewport();
}

// A desktop gives the keyboard to the window that waits for its answer; the toolkit's platform for tests does
// not when a window comes back.
QWidget& WithKeyboard() {
  if (QWidget* const focused = QApplication::focusWidget()) return *focused;
  QWidget* window = QApplication::activeModalWidget();
  if (window == nullptr) window = QApplication::activeWindow();
  if (window == nullptr) throw std::logic_error("no window has the keyboard");
  QWidget* const within = window->focusWidget();
  return within == nullptr ? *window : *within;
}

}  // namespace

MsgBoxAnswer HandWindows::MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string& title) {
  return script_.MsgBox(text, buttons, title);
}

std::string HandWindows::InputBox(const std::string& prompt, const std::string& title,
                                  const std::string& defaultText) {
  return script_.InputBox(prompt, title, defaultText);
}

void HandWindows::RunModal(Form& form) {
  auto& plays = script_.Modal[form.Name()];
  if (!plays.empty()) {
    QTimer::singleShot(0, qApp, [play = std::move(plays.front()), &form] { play(form); });
    plays.pop_front();
  }
  QtWindowSystem::RunModal(form);
}

Hand::Hand(TestMachine& machine)
    : windows(*machine.Files, machine.Windows),
      platform{windows,       machine.TheScreen,  *machine.Files,   machine.Pictures, machine.Metrics,
               machine.Fonts, machine.ThePrinter, machine.Launches, machine.Http,     machine.platform.app},
      screen_(machine.TheScreen) {}

void Hand::Show(Form& form) {
  windows.ShowMain(form);
  Settle();
}

void Hand::Press(const Control& control) {
  Click(control, control.Width() / 2, control.Height() / 2);
}

void Hand::Click(const Control& control, double x, double y, Qt::MouseButton button,
                 Qt::KeyboardModifiers modifiers) {
  QTest::mouseClick(&Surface(Find(control)), button, modifiers, QPoint(ToPixels(x), ToPixels(y)));
  Settle();
}

void Hand::Point(const Control& control, double x, double y) {
  const QPoint place(ToPixels(x), ToPixels(y));
  // The first move over a window only enters it.
  for (const QPoint& on : {place - QPoint(1, 0), place}) QTest::mouseMove(&Surface(Find(control)), on);
  Settle();
}

void Hand::Type(const Control& box, const std::string& text) {
  Press(box);
  QTest::keyClick(&WithKeyboard(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&WithKeyboard(), Qt::Key_Delete);
  QTest::keyClicks(&WithKeyboard(), QString::fromStdString(text));
  Settle();
}

void Hand::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(&WithKeyboard(), key, modifiers);
  Settle();
}

void Hand::HoldDown(Qt::Key key) {
  for (int i = 0; i < kRepeats; ++i) {
    QKeyEvent repeat(QEvent::KeyPress, key, {}, {}, true);
    QApplication::sendEvent(&WithKeyboard(), &repeat);
  }
  Settle();
}

void Hand::Move(const Form& form, double left, double top) {
  See(form).move(ToPixels(left), ToPixels(top));
  Settle();
}

void Hand::Resize(const Form& form, double width, double height) {
  See(form).resize(ToPixels(width), ToPixels(height));
  Settle();
}

std::vector<std::string> Hand::Rows(const Control& list, const QModelIndex& below) {
  const QAbstractItemModel& model = *See<QAbstractItemView>(list).model();
  std::vector<std::string> rows;
  for (int i = 0; i < model.rowCount(below); ++i)
    rows.push_back(model.index(i, 0, below).data().toString().toStdString());
  return rows;
}

QModelIndex Hand::Row(const Control& list, const std::string& text) {
  const QAbstractItemModel& model = *See<QAbstractItemView>(list).model();
  const auto found = model.match(model.index(0, 0), Qt::DisplayRole, QString::fromStdString(text), 1,
                                 Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
  if (found.empty()) throw std::logic_error("no row " + text);
  return found.front();
}

void Hand::ClickRow(const Control& list, const QModelIndex& row, int x, Qt::MouseButton button) {
  auto& view = See<QAbstractItemView>(list);
  view.scrollTo(row);
  const QRect place = view.visualRect(row);
  QTest::mouseClick(view.viewport(), button, {}, {place.left() + x, place.center().y()});
  Settle();
}

void Hand::ClickRow(const Control& list, int row, Qt::MouseButton button) {
  ClickRow(list, See<QAbstractItemView>(list).model()->index(row, 0), 5, button);
}

QWidget& Hand::See(const Form& form) {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName().toStdString() == form.Name()) return *window;
  }
  throw std::logic_error("no window " + form.Name());
}

void Hand::Settle() {
  QApplication::processEvents();
}

QWidget& Hand::Find(const Control& control) {
  QWidget* const found =
      See(control.Parent().OwnerForm()).findChild<QWidget*>(QString::fromStdString(control.Name()));
  if (found == nullptr) throw std::logic_error("no control " + control.Name());
  return *found;
}

}  // namespace Morvane
