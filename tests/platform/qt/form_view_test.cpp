#include <gmock/gmock.h>

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include "platform/controls/simple_controls.h"
#include "platform/qt/desktop/qt_screen.h"
#include "platform/qt/desktop/qt_window_system.h"
#include "platform/qt/views/form_view.h"
#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

using testing::ElementsAre;

QMessageBox* OpenBox() {
  return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

void PressInBox(const QString& caption) {
  for (QAbstractButton* const button : OpenBox()->buttons()) {
    if (button->text().remove('&') == caption) return button->click();
  }
  ADD_FAILURE() << "no button " << caption.toStdString();
}

QWidget& WindowOf(const std::string& name) {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName().toStdString() == name) return *window;
  }
  throw std::logic_error("no window " + name);
}

// A window of the real back-end, shown without a screen. A test makes its controls, then calls Show.
class FormViewTest : public testing::Test {
 protected:
  TestMachine machine;
  QtWindowSystem windows{*machine.Files};
  Form form{{.name = "Form1", .caption = "Prova", .clientWidth = 6000, .clientHeight = 4500}};
  std::vector<std::string> log;

  // Controls are placed below each other, in the order in which they were made.
  void Show() {
    double top = 0;
    for (Control* const control : form.AllControls()) {
      if (control->Width() > 0) continue;
      control->SetTop(top);
      control->SetWidth(1500);
      control->SetHeight(450);
      top += 450;
    }
    windows.ShowMain(form);
    QApplication::processEvents();
  }

  std::function<void()> Log(const std::string& line) {
    return [this, line] { log.push_back(line); };
  }

  template <typename T>
  static T& Widget(const std::string& name) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (T* const found = window->findChild<T*>(QString::fromStdString(name))) return *found;
    }
    throw std::logic_error("no widget " + name);
  }

  static void Click(QWidget& widget, Qt::MouseButton button = Qt::LeftButton, QPoint place = {}) {
    QTest::mouseClick(&widget, button, {}, place);
    QApplication::processEvents();
  }

  // Plays the user once a box or window is open.
  void Later(const std::function<void()>& action) { QTimer::singleShot(20, qApp, action); }
};

TEST_F(FormViewTest, EndInAModalWindowEndsEveryLoop) {
  Show();
  Form inner({.name = "Inner", .caption = "Dentro", .clientWidth = 3000, .clientHeight = 1500});
  QTimer::singleShot(0, qApp, [&] { windows.ShowModal(inner); });
  QTimer::singleShot(50, qApp, [&] { windows.End(); });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_EQ(windows.MsgBox("niente"), MsgBoxAnswer::Cancel);
}

TEST_F(FormViewTest, FailingHandlerShowsItsTextAndTheProgramGoesOn) {
  CommandButton button(form, "Command1");
  button.Click = [] { throw RuntimeError(ErrorNumber::FileNotFound, "Il <b>file</b> non c'è."); };
  Show();
  QString shown;
  Later([&] {
    shown = OpenBox()->text();
    EXPECT_EQ(OpenBox()->textFormat(), Qt::PlainText);
    EXPECT_EQ(OpenBox()->windowTitle(), "Morvane");
    PressInBox("OK");
  });
  Click(Widget<QPushButton>("Command1"));
  EXPECT_EQ(shown, "Il <b>file</b> non c'è.");
  button.Click = Log("Click");
  Click(Widget<QPushButton>("Command1"));
  EXPECT_THAT(log, ElementsAre("Click"));
}

TEST_F(FormViewTest, MessageBoxGivesTheButtonPressed) {
  Show();
  const auto answer = [&](MsgBoxButtons buttons, const QString& caption) {
    Later([caption] { PressInBox(caption); });
    return windows.MsgBox("Domanda", buttons);
  };
  EXPECT_EQ(answer(MsgBoxButtons::OkCancel, "OK"), MsgBoxAnswer::Ok);
  EXPECT_EQ(answer(MsgBoxButtons::OkCancel, "Annulla"), MsgBoxAnswer::Cancel);
  EXPECT_EQ(answer(MsgBoxButtons::YesNo, "Sì"), MsgBoxAnswer::Yes);
  EXPECT_EQ(answer(MsgBoxButtons::YesNo, "No"), MsgBoxAnswer::No);
}

// The user went to another program and came back while a box was open.
TEST_F(FormViewTest, ComingBackToAnOpenBoxActivatesTheWindowOnceTheBoxIsAnswered) {
  form.Activate = Log("Activate");
  Show();
  Later([&] {
    for (const Qt::ApplicationState state : {Qt::ApplicationInactive, Qt::ApplicationActive})
      Q_EMIT qGuiApp->applicationStateChanged(state);
    QApplication::processEvents();
    log.push_back("answer");
    PressInBox("OK");
  });
  windows.MsgBox("Messaggio");
  WindowOf("Form1").activateWindow();  // as a window manager does
  EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() > 2; }));
  EXPECT_THAT(log, ElementsAre("Activate", "answer", "Activate"));
}

TEST_F(FormViewTest, TheDesktopsSizeIsFollowed) {
  const QtScreen desktop(machine.TheScreen);
  const double width = std::exchange(machine.TheScreen.Width, 0);
  EXPECT_EQ(width, Desk().width() * kTwipsPerPixel);
  Q_EMIT QGuiApplication::primaryScreen()->availableGeometryChanged({});
  EXPECT_EQ(machine.TheScreen.Width, width);
}

TEST_F(FormViewTest, InputBoxStartsFromTheDefaultAndIsEmptyOnCancel) {
  Show();
  Later([] {
    auto& line = *QApplication::activeModalWidget()->findChild<QLineEdit*>();
    EXPECT_EQ(line.selectedText(), "foto.jpg");
    QTest::keyClicks(&line, "nuova.jpg");
    QTest::keyClick(&line, Qt::Key_Return);
  });
  EXPECT_EQ(windows.InputBox("Nome", "Rinomina", "foto.jpg"), "nuova.jpg");
  Later([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
  EXPECT_EQ(windows.InputBox("Nome", "Rinomina", "foto.jpg"), "");
}

TEST_F(FormViewTest, PopupMenuRunsTheChosenEntryAndLetsItsFailureOut) {
  Show();
  const std::vector<MenuItem> items = {
      {"a", "&Primo", "", [] { throw RuntimeError(ErrorNumber::PermissionDenied, "no"); }}};
  Later([] {
    QWidget* const menu = QApplication::activePopupWidget();
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
  });
  EXPECT_THROW(windows.PopupMenu(items), RuntimeError);
  Later([] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape); });
  windows.PopupMenu(items);
}

TEST_F(FormViewTest, TabLeavesATextBoxOfManyLines) {
  TextBox text(form, "Text1");
  CommandButton button(form, "Command1");
  text.SetMultiLine(true);
  Show();
  QTest::keyClick(&Widget<QPlainTextEdit>("Text1"), Qt::Key_Tab);
  EXPECT_EQ(form.FocusedControl(), &button);
  EXPECT_EQ(text.Text(), "");
}

TEST_F(FormViewTest, TimerTicksWhileItRunsAndNotWithinATick) {
  Timer timer(form, "Timer1");
  timer.SetInterval(1);
  Show();
  timer.Tick = [&] {
    log.push_back("Tick");
    QTest::qWait(5);  // further ticks are due
    log.push_back("done");
    timer.SetRunning(false);
  };
  timer.SetRunning(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() > 1; }));
  EXPECT_THAT(log, ElementsAre("Tick", "done"));
}

}  // namespace
}  // namespace Morvane
