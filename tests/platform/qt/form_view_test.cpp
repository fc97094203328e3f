#include <gmock/gmock.h>

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include "platform/controls/picture_box.h"
#include "platform/qt/desktop/qt_screen.h"
#include "platform/qt/desktop/qt_window_system.h"
#include "platform/qt/pictures/qt_picture.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

using testing::ElementsAre;

// A window of the real back-end, shown without a screen.
class FormViewTest : public testing::Test {
 protected:
  TestMachine machine;
  QtWindowSystem windows{*machine.Files};
  Form form{{.name = "Form1", .caption = "Prova", .clientWidth = 6000, .clientHeight = 4500}};
  std::vector<std::string> log;
};

TEST_F(FormViewTest, EndInAModalWindowEndsEveryLoop) {
  windows.ShowMain(form);
  Form inner({.name = "Inner", .caption = "Dentro", .clientWidth = 3000, .clientHeight = 1500});
  QTimer::singleShot(0, qApp, [&] { windows.ShowModal(inner); });
  QTimer::singleShot(50, qApp, [&] { windows.End(); });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_EQ(windows.MsgBox("niente"), MsgBoxAnswer::Cancel);
}

// The user went to another program and came back while a box was open.
TEST_F(FormViewTest, ComingBackToAnOpenBoxActivatesTheWindowOnceTheBoxIsAnswered) {
  form.Activate = [&] { log.emplace_back("Activate"); };
  windows.ShowMain(form);
  QApplication::processEvents();
  QWidget* const window = QApplication::activeWindow();
  QTimer::singleShot(20, qApp, [&] {
    for (const Qt::ApplicationState state : {Qt::ApplicationInactive, Qt::ApplicationActive})
      Q_EMIT qGuiApp->applicationStateChanged(state);
    QApplication::processEvents();
    log.emplace_back("answer");
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
  });
  windows.MsgBox("Messaggio");
  window->activateWindow();  // as a window manager does
  EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() > 2; }));
  Q_EMIT qGuiApp->focusWindowChanged(nullptr);  // of no interest any more
  QApplication::processEvents();
  EXPECT_THAT(log, ElementsAre("Activate", "answer", "Activate"));
}

// While a window is resized its pictures are stretched, of whatever pixels are there.
TEST_F(FormViewTest, PicturesAreSharpAgainOnceTheSizeStays) {
  QImage lines(400, 400, QImage::Format_RGB32);
  for (int y = 0; y < 400; ++y)
    for (int x = 0; x < 400; ++x) lines.setPixel(x, y, x % 7 < 3 ? 0xFF000000 : 0xFFFFFFFF);
  const auto picture = std::make_shared<FilePicture>(QByteArray(), lines.size(), lines);
  PictureBox box(form, "Picture1", machine.Metrics);
  box.PaperBackground = true;
  const auto draw = [&](double side) {
    box.SetWidth(side);
    box.SetHeight(side);
    box.Surface.Cls();
    box.Surface.PaintPicture(picture, 0, 0, side, side);
  };
  const auto seen = [&] {
    return QApplication::activeWindow()->findChild<QWidget*>("Picture1")->grab().toImage();
  };
  draw(3000);
  windows.ShowMain(form);
  QApplication::processEvents();
  const QImage large = seen();
  draw(1500);
  const QImage shrunk = seen();
  EXPECT_TRUE(QTest::qWaitFor([&] { return seen() != shrunk; }));
  draw(3000);
  EXPECT_NE(seen(), large);
  EXPECT_TRUE(QTest::qWaitFor([&] { return seen() == large; }));
}

TEST_F(FormViewTest, WindowsOpenOnTheScreenThatTheUserWorksOn) {
  Screen screen;
  FollowDesktop(screen);
  windows.ShowMain(form);
  QApplication::processEvents();
  const QRect other = QGuiApplication::screens().back()->geometry();
  QApplication::activeWindow()->move(other.topLeft() + QPoint(100, 100));
  Form inner({.name = "Inner", .caption = "Dentro", .clientWidth = 3000, .clientHeight = 1500});
  inner.Load = [&] { inner.CentreOn(screen); };
  inner.Activate = [&] {
    windows.Post([&] {
      EXPECT_NEAR(QApplication::activeModalWidget()->geometry().center().x(), other.center().x(), 10);
      inner.UnloadForm();
    });
  };
  windows.ShowModal(inner);
}

}  // namespace
}  // namespace Morvane
