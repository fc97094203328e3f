#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "view_fixture.h"

namespace Morvane {
namespace {

using testing::ElementsAre;

using ControlViewTest = ViewTest;

TEST_F(ControlViewTest, ButtonClickComesAfterTheLostFocusOfTheTextBox) {
  TextBox text(form, "Text1");
  CommandButton button(form, "Command1");
  text.Change = [&] { log.push_back("Change " + text.Text()); };
  text.LostFocus = Log("LostFocus");
  button.Click = Log("Click");
  Show();
  QTest::keyClicks(&Widget<QLineEdit>("Text1"), "7");
  Click(Widget<QPushButton>("Command1"));
  EXPECT_THAT(log, ElementsAre("Change 7", "LostFocus", "Click"));
  EXPECT_EQ(form.FocusedControl(), &button);
}

TEST_F(ControlViewTest, TabLeavesATextBoxOfManyLines) {
  TextBox text(form, "Text1");
  CommandButton button(form, "Command1");
  text.SetMultiLine(true);
  Show();
  QTest::keyClick(&Widget<QPlainTextEdit>("Text1"), Qt::Key_Tab);
  EXPECT_EQ(form.FocusedControl(), &button);
  EXPECT_EQ(text.Text(), "");
}

TEST_F(ControlViewTest, ChoicesFireOneClickFromTheUserAndFromCode) {
  CheckBox check(form, "Check1");
  Frame frame(form, "Frame1");
  OptionButton first(frame, "Option1"), second(frame, "Option2");
  first.SetValue(true);
  Show();
  check.Click = Log("Check1");
  first.Click = Log("Option1");
  second.Click = Log("Option2");
  Click(Widget<QCheckBox>("Check1"));
  Click(Widget<QRadioButton>("Option2"));
  Click(Widget<QRadioButton>("Option2"));
  EXPECT_THAT(log, ElementsAre("Check1", "Option2"));
  EXPECT_FALSE(first.Value());
  first.SetValue(true);
  check.SetValue(0);
  EXPECT_TRUE(Widget<QRadioButton>("Option1").isChecked());
  EXPECT_FALSE(Widget<QRadioButton>("Option2").isChecked());
  EXPECT_FALSE(Widget<QCheckBox>("Check1").isChecked());
  EXPECT_EQ(log.size(), 4U);
}

TEST_F(ControlViewTest, MouseOverAPictureDoesNotReachWhatHoldsIt) {
  Frame frame(form, "Frame1");
  ImageBox picture(frame, "Picture3");
  picture.SetWidth(300);
  picture.SetHeight(300);
  picture.MouseMove = [&](double, double) { log.push_back("Picture3"); };
  frame.MouseMove = [&](double, double) { log.push_back("Frame1"); };
  form.MouseMove = [&](double, double) { log.push_back("Form1"); };
  picture.Click = Log("Click");
  Show();
  QTest::mouseMove(&Widget<QWidget>("Picture3"), QPoint(3, 3));
  log.clear();
  QTest::mouseMove(&Widget<QWidget>("Picture3"), QPoint(5, 5));
  Click(Widget<QWidget>("Picture3"));
  EXPECT_EQ(log.front(), "Picture3");
  EXPECT_EQ(log.back(), "Click");
  EXPECT_THAT(log, testing::Each(testing::AnyOf("Picture3", "Click")));
}

TEST_F(ControlViewTest, TimerTicksWhileItRunsAndNotWithinATick) {
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
