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
#include <algorithm>
#include <functional>
#include <map>
#include <stdexcept>
#include <utility>

#include "platform/qt/views/view_text.h"

namespace Morvane {

namespace {

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

const std::map<MsgBoxAnswer, QString> kCaptions = {{MsgBoxAnswer::Ok, "OK"},
                                                   {MsgBoxAnswer::Cancel, "Annulla"},
                                                   {MsgBoxAnswer::Yes, "Sì"},
                                                   {MsgBoxAnswer::No, "No"}};

// Acts in the box or menu that opens over the windows, and gives the keyboard back to the one below, as a
// desktop does. What cannot be done there is read as such, and the box is closed.
class Meanwhile : public QObject {
 public:
  Meanwhile(HandWindows& windows, std::function<void(QWidget& open)> act)
      : windows_(windows), act_(std::move(act)), below_(Open()) {
    connect(&watch_, &QTimer::timeout, this, [this] { Look(); });
    watch_.start(0);
  }
  ~Meanwhile() override {
    if (watch_.isActive()) windows_.Read.emplace_back("cannot be done", "no box came");
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      const Form* const top = windows_.TopForm();
      if (top && window->isVisible() && window->objectName().toStdString() == top->Name())
        window->activateWindow();
    }
  }

 private:
  static QWidget* Open() {
    QWidget* const menu = QApplication::activePopupWidget();
    return menu == nullptr ? QApplication::activeModalWidget() : menu;
  }
  void Look() {
    QWidget* const open = Open();
    if (open == nullptr || open == below_) return;
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
  QTimer watch_;
};

// A part that a box must have.
template <typename Part>
Part& Within(const QWidget& box) {
  auto* const part = box.findChild<Part*>();
  if (part == nullptr) throw std::logic_error("the box lacks a part");
  return *part;
}

}  // namespace

MsgBoxAnswer HandWindows::MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string& title) {
  const Meanwhile answer(*this, [&](QWidget& open) {
    auto& box = dynamic_cast<QMessageBox&>(open);
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    QStringList captions;
    for (const QAbstractButton* const button : box.buttons()) captions << button->text().remove('&');
    const QString heading = "box " + box.windowTitle() + " [" + captions.join(" | ") + "]";
    Read.emplace_back(heading.toStdString(), box.text().toStdString());
    const QString wanted = kCaptions.at(script_.MsgBox(text, buttons, title));
    EXPECT_TRUE(captions.contains(wanted)) << heading.toStdString();
    QTest::mouseClick(box.buttons().at(std::max(captions.indexOf(wanted), qsizetype{0})), Qt::LeftButton);
  });
  return QtWindowSystem::MsgBox(text, buttons, title);
}

std::string HandWindows::InputBox(const std::string& prompt, const std::string& title,
                                  const std::string& defaultText) {
  const Meanwhile answer(*this, [&](const QWidget& box) {
    auto& line = Within<QLineEdit>(box);
    const QString question = Within<QLabel>(box).text() + " [" + line.selectedText() + "]";
    Read.emplace_back(box.windowTitle().toStdString() + " asks", question.toStdString());
    const std::string typed = script_.InputBox(prompt, title, defaultText);
    QTest::keyClicks(&line, QString::fromStdString(typed));
    QTest::keyClick(&line, typed.empty() ? Qt::Key_Escape : Qt::Key_Return);
  });
  return QtWindowSystem::InputBox(prompt, title, defaultText);
}

void HandWindows::PopupMenu(const std::vector<MenuItem>& items) {
  const Meanwhile choose(*this, [&](QWidget& open) {
    auto& menu = dynamic_cast<QMenu&>(open);
    const std::string choice = script_.MenuChoices.empty() ? "" : script_.MenuChoices.front();
    if (!script_.MenuChoices.empty()) script_.MenuChoices.pop_front();
    QStringList entries;
    for (QAction* const entry : menu.actions()) {
      entries << entry->text();
      if (entry->objectName().toStdString() == choice) menu.setActiveAction(entry);
    }
    Read.emplace_back("menu", entries.join(" | ").toStdString());
    QTest::keyClick(&menu, choice.empty() ? Qt::Key_Escape : Qt::Key_Return);
  });
  QtWindowSystem::PopupMenu(items);
}

std::string HandWindows::BrowseForFolder(const std::string& title) {
  const Meanwhile choose(*this, [&](const QWidget& chooser) {
    Read.emplace_back("chooser", chooser.windowTitle().toStdString());
    const std::string folder = script_.BrowseForFolder(title);
    auto& line = Within<QLineEdit>(chooser);
    const bool isBeyond = folder.starts_with('/');  // what the program knows of
    line.setText(QString::fromStdString(isBeyond ? folder : files_.ToNative(folder)));
    QTest::keyClick(&line, folder.empty() ? Qt::Key_Escape : Qt::Key_Return);
  });
  return QtWindowSystem::BrowseForFolder(title);
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
               machine.Fonts, machine.ThePrinter, machine.Launches, machine.Http,     machine.platform.app} {
  FollowDesktop(machine.TheScreen);
}

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

void Hand::Type(const Control& box, const std::string& text) {
  Press(box);
  QTest::keyClick(&WithKeyboard(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&WithKeyboard(), Qt::Key_Delete);
  QTest::keyClicks(&WithKeyboard(), QString::fromStdString(text));
  Settle();
}

void Hand::Key(const QKeySequence& keys) {
  QTest::keySequence(&WithKeyboard(), keys);
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

void Hand::ClickRow(const Control& list, const QModelIndex& row, int x, Qt::MouseButton button,
                    Qt::KeyboardModifiers modifiers) {
  auto& view = See<QAbstractItemView>(list);
  view.scrollTo(row);
  const QRect place = view.visualRect(row);
  QTest::mouseClick(view.viewport(), button, modifiers, {place.left() + x, place.center().y()});
  Settle();
}

QWidget& Hand::See(const Form& form) {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName().toStdString() == form.Name()) return *window;
  }
  throw std::logic_error("no window " + form.Name());
}

// What boxes give back comes after their end.
void Hand::Settle() {
  for (int round = 0; round < 2; ++round) QApplication::processEvents();
}

QWidget& Hand::Find(const Control& control) {
  QWidget* const found =
      See(control.Parent().OwnerForm()).findChild<QWidget*>(QString::fromStdString(control.Name()));
  if (found == nullptr) throw std::logic_error("no control " + control.Name());
  return *found;
}

}  // namespace Morvane
