#include <QCheckBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QTreeView>

#include "platform/controls/bars.h"
#include "platform/controls/list_box.h"
#include "platform/controls/picture_box.h"
#include "platform/controls/tree_view.h"
#include "view_fixture.h"

namespace Morvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST_F(ControlViewTest, FocusFromCodeMovesTheKeyboard) {
  TextBox first(form, "Text1"), second(form, "Text2");
  Show();
  second.SetFocus();
  EXPECT_EQ(QApplication::focusWidget(), &Widget<QLineEdit>("Text2"));
}

TEST_F(ControlViewTest, TextFromCodeIsShownAndFiresOneChange) {
  TextBox text(form, "Text1");
  Show();
  text.Change = Log("Change");
  text.SetText("perché");
  EXPECT_EQ(Widget<QLineEdit>("Text1").text(), "perché");
  EXPECT_EQ(log.size(), 1U);
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

TEST_F(ControlViewTest, MouseOnAPictureBoxComesInItsScale) {
  PictureBox page(form, "Picture1", machine.Metrics);
  page.SetWidth(3000);
  page.SetHeight(3000);
  page.Surface.Scale(0, 0, 10, 10);
  page.MouseDown = [&](MouseButton button, double x, double y) {
    log.push_back(button == MouseButton::Left ? "left" : "other");
    EXPECT_DOUBLE_EQ(x, 5);
    EXPECT_DOUBLE_EQ(y, 2);
  };
  Show();
  Click(Widget<QWidget>("Picture1"), Qt::LeftButton, QPoint(100, 40));
  Click(Widget<QWidget>("Picture1"), Qt::RightButton, QPoint(100, 40));
  EXPECT_THAT(log, ElementsAre("left", "other"));
}

class ListBoxViewTest : public ViewTest {
 protected:
  ListBox list{form, "List1"};

  void ShowList() {
    list.SetWidth(3000);
    list.SetHeight(3000);
    Show();
    list.Click = [this] { log.push_back("Click " + list.Text()); };
  }
  QListView& View() { return Widget<QListView>("List1"); }
  QPoint PlaceOf(int row) { return View().visualRect(View().model()->index(row, 0)).center(); }
  void ClickRow(int row, Qt::MouseButton button = Qt::LeftButton) {
    Click(*View().viewport(), button, PlaceOf(row));
  }
};

TEST_F(ListBoxViewTest, AClickOnTheSelectedRowIsAnEventAndTheRowStaysHighlighted) {
  for (const char* const name : {"a", "b", "c"}) list.AddItem(name);
  ShowList();
  ClickRow(1);
  ClickRow(1);
  QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::ControlModifier, PlaceOf(1));
  QTest::keyClick(&View(), Qt::Key_Space, Qt::ControlModifier);
  EXPECT_TRUE(View().selectionModel()->isSelected(View().model()->index(1, 0)));
  QTest::keyClick(&View(), Qt::Key_Down);
  EXPECT_THAT(log, ElementsAre("Click b", "Click b", "Click b", "Click c"));
  log.clear();
  list.SetListIndex(0);
  list.SetListIndex(0);
  EXPECT_THAT(log, ElementsAre("Click a"));
  EXPECT_EQ(View().currentIndex().row(), 0);
}

TEST_F(ListBoxViewTest, RightPressSelectsNothing) {
  for (const char* const name : {"a", "b"}) list.AddItem(name);
  list.MouseDown = [&](MouseButton button, double, double) {
    log.push_back(button == MouseButton::Right ? "right" : "left");
  };
  ShowList();
  ClickRow(1, Qt::RightButton);
  EXPECT_THAT(log, ElementsAre("right"));
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_THAT(View().selectionModel()->selectedIndexes(), IsEmpty());
}

TEST_F(ListBoxViewTest, TakingTheFocusSelectsNothing) {
  list.AddItem("a");
  ShowList();
  list.SetFocus();
  QApplication::processEvents();
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(ListBoxViewTest, DoubleClickEnterAndEscReachTheWindow) {
  list.AddItem("a");
  list.DblClick = Log("DblClick");
  list.KeyDown = [&](int key) { log.push_back(std::to_string(key)); };
  ShowList();
  ClickRow(0);
  QTest::mouseDClick(View().viewport(), Qt::LeftButton, {}, PlaceOf(0));
  QTest::keyClick(&View(), Qt::Key_Return);
  QTest::keyClick(&View(), Qt::Key_Escape);
  EXPECT_THAT(log, testing::IsSupersetOf({"DblClick", "13", "27"}));
}

TEST_F(ListBoxViewTest, RowsChangedFromAHandlerAreShown) {
  for (const char* const name : {"a", "b", "c"}) list.AddItem(name);
  ShowList();
  list.Click = [&] {
    if (list.ListCount() == 1) return;
    list.Clear();
    list.AddItem("nuova");
    list.SetListIndex(0);
  };
  ClickRow(2);
  QApplication::processEvents();
  EXPECT_EQ(View().model()->rowCount(), 1);
  EXPECT_EQ(View().currentIndex().row(), 0);
  list.RemoveItem(0);
  QApplication::processEvents();
  EXPECT_EQ(View().model()->rowCount(), 0);
}

class NodeTreeViewTest : public ViewTest {
 protected:
  TreeView tree{form, "tvwdirtree"};

  void ShowTree() {
    tree.SetWidth(3000);
    tree.SetHeight(3000);
    Show();
    tree.NodeClick = [this](TreeNode& node) { log.push_back("NodeClick " + node.Key()); };
    tree.Click = Log("Click");
    tree.Expand = [this](TreeNode& node) { log.push_back("Expand " + node.Key()); };
    tree.Collapse = [this](TreeNode& node) { log.push_back("Collapse " + node.Key()); };
  }
  QTreeView& View() { return Widget<QTreeView>("tvwdirtree"); }
  QModelIndex Top(int row) { return View().model()->index(row, 0); }
};

TEST_F(NodeTreeViewTest, ClickOnANodeIsNotAClickOnItsExpander) {
  tree.Add("", "c", "Disco", "hard");
  tree.Add("c", "d", "Dati", "closed");
  ShowTree();
  const QPoint name = View().visualRect(Top(0)).center();
  Click(*View().viewport(), Qt::LeftButton, name);
  EXPECT_THAT(log, ElementsAre("NodeClick c", "Click"));
  const QPoint expander(View().visualRect(Top(0)).left() - 8, name.y());
  Click(*View().viewport(), Qt::LeftButton, expander);
  Click(*View().viewport(), Qt::LeftButton, expander);
  EXPECT_THAT(log, ElementsAre("NodeClick c", "Click", "Expand c", "Collapse c"));
}

TEST_F(NodeTreeViewTest, KeyboardMovesAndOpensNodes) {
  tree.Add("", "c", "Disco", "hard");
  tree.Add("c", "d", "Dati", "closed");
  ShowTree();
  View().setFocus();
  EXPECT_THAT(log, IsEmpty());
  QTest::keyClick(&View(), Qt::Key_Down);
  log.clear();
  tree.UserClicks(*tree.Find("c"));
  QTest::keyClick(&View(), Qt::Key_Right);
  QTest::keyClick(&View(), Qt::Key_Down);
  EXPECT_THAT(log, ElementsAre("NodeClick c", "Click", "Expand c", "NodeClick d", "Click"));
}

TEST_F(NodeTreeViewTest, WhatIsHighlightedIsWhatWasClicked) {
  tree.Add("", "c", "Disco", "hard");
  tree.Add("", "d", "Altro", "hard");
  ShowTree();
  const QPoint first = View().visualRect(Top(0)).center();
  const QPoint second = View().visualRect(Top(1)).center();
  Click(*View().viewport(), Qt::RightButton, first);
  EXPECT_THAT(log, IsEmpty());
  Click(*View().viewport(), Qt::LeftButton, first);
  QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::ControlModifier, first);
  EXPECT_THAT(View().selectionModel()->selectedIndexes(), ElementsAre(Top(0)));
  log.clear();
  QTest::mousePress(View().viewport(), Qt::LeftButton, {}, second);
  QMouseEvent slide(QEvent::MouseMove, first, View().viewport()->mapToGlobal(first), Qt::NoButton,
                    Qt::LeftButton, {});
  QApplication::sendEvent(View().viewport(), &slide);
  QTest::mouseRelease(View().viewport(), Qt::LeftButton, {}, first);
  EXPECT_THAT(log, IsEmpty());
  EXPECT_EQ(tree.Selected(), tree.Find("c"));
  EXPECT_THAT(View().selectionModel()->selectedIndexes(), ElementsAre(Top(0)));
}

TEST_F(NodeTreeViewTest, TheAsteriskOpensItsNodeAlone) {
  tree.Add("", "c", "Disco", "hard");
  tree.Add("c", "d", "Dati", "closed");
  tree.Add("d", "e", "Dentro", "closed");
  ShowTree();
  tree.UserClicks(*tree.Find("c"));
  log.clear();
  QTest::keyClick(&View(), Qt::Key_Asterisk);
  EXPECT_THAT(log, ElementsAre("Expand c"));
}

TEST_F(NodeTreeViewTest, NodesAddedWhileOneOpensAreShownInOrder) {
  TreeNode& disc = tree.Add("", "c", "Disco", "hard");
  tree.Add("c", "m", "Musica", "closed");
  tree.SetSorted(disc, true);
  ShowTree();
  tree.Expand = [&](TreeNode& node) {
    if (&node != &disc) return;
    tree.SetRedraw(false);
    tree.Add("c", "a", "Album", "closed");
    tree.Add("m", "x", "Dentro", "closed");
    tree.SetRedraw(true);
  };
  tree.UserExpands(disc);
  tree.EnsureVisible(*tree.Find("x"));
  QApplication::processEvents();
  EXPECT_EQ(View().model()->rowCount(Top(0)), 2);
  const QModelIndex music = View().model()->index(1, 0, Top(0));
  EXPECT_EQ(music.data().toString(), "Musica");
  EXPECT_TRUE(View().isExpanded(Top(0)));
  EXPECT_TRUE(View().isExpanded(music));
}

TEST_F(ControlViewTest, ToolbarAndStatusBarTellWhatWasPressed) {
  Toolbar bar(form, "Toolbar1");
  bar.Buttons = {{"", ToolStyle::Separator},
                 {"Front", ToolStyle::Button, "Carica", "front"},
                 {"Contorno", ToolStyle::DropDown, "Contorno", "contorno"}};
  StatusBar status(form, "StatusBar1");
  status.Panels = {{"About", "Informazioni"}};
  bar.ButtonClick = [&](const ToolButton& button) { log.push_back(button.key); };
  bar.ButtonMenuClick = [&](const std::string& text) { log.push_back(text); };
  status.PanelClick = [&](const StatusPanel& panel) { log.push_back(panel.text); };
  Show();
  bar.AddMenuEntry("Contorno", "Linea fine");
  Click(Widget<QToolButton>("Front"));
  Widget<QToolButton>("Contorno").menu()->actions().front()->trigger();
  Click(*Widget<QWidget>("StatusBar1").findChild<QToolButton*>());
  EXPECT_THAT(log, ElementsAre("Front", "Linea fine", "About"));
  bar.SetButtonEnabled("Front", false);
  EXPECT_FALSE(Widget<QToolButton>("Front").isEnabled());
  EXPECT_EQ(Widget<QToolButton>("Front").accessibleName(), "Carica");
  EXPECT_FALSE(Widget<QToolButton>("Front").icon().isNull());
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
