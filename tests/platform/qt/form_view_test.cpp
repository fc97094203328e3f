#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include "platform/qt/desktop/qt_screen.h"
#include "platform/runtime_error.h"
#include "view_fixture.h"

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

using FormViewTest = ViewTest;

TEST_F(FormViewTest, FiresActivateOnceAndPaintWhenItAppears) {
  Label label(form, "Label1");
  form.Activate = Log("Activate");
  form.Paint = Log("Paint");
  Show();
  label.SetCaption("altro");
  QApplication::processEvents();
  EXPECT_THAT(log, ElementsAre("Activate", "Paint"));
}

TEST_F(FormViewTest, ResizableWindowTellsItsSizeOnceAndTakesOneFromCode) {
  Form wide({.name = "Wide",
             .caption = "Larga",
             .clientWidth = 3000,
             .clientHeight = 3000,
             .frameHeight = 600,
             .resizable = true});
  Label label(wide, "Label1");
  windows.ShowMain(wide);
  QApplication::processEvents();
  wide.Resize = Log("Resize");
  WindowOf("Wide").resize(300, 250);
  QApplication::processEvents();
  EXPECT_THAT(log, ElementsAre("Resize"));
  EXPECT_EQ(wide.ClientWidth(), 4500);
  EXPECT_EQ(wide.Height(), 250 * 15 + 600);
  wide.SetSize(3000, 3600);
  QApplication::processEvents();
  EXPECT_EQ(log.size(), 2U);
  EXPECT_EQ(WindowOf("Wide").size(), QSize(200, 200));
}

TEST_F(FormViewTest, CloseBoxUnloadsTheModalWindowAndActivatesTheOneBelow) {
  form.Activate = Log("Activate Form1");
  Show();
  log.clear();
  auto inner = std::make_unique<Form>(
      FormRow{.name = "Inner", .caption = "Dentro", .clientWidth = 3000, .clientHeight = 1500});
  inner->Unload = Log("Unload");
  Later([] { WindowOf("Inner").close(); });
  windows.ShowModal(*inner);
  EXPECT_TRUE(inner->Unloaded());
  inner.reset();
  EXPECT_THAT(log, ElementsAre("Unload"));
  QApplication::processEvents();
  EXPECT_THAT(log, ElementsAre("Unload", "Activate Form1"));
  EXPECT_THROW(WindowOf("Inner"), std::logic_error);
}

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

}  // namespace
}  // namespace Morvane
