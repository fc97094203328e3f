#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/list_box.h"
#include "platform/controls/picture_box.h"
#include "platform/controls/screen.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/tree_view.h"
#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;

class Controls : public ::testing::Test {
 protected:
  Form form{FormRow{.name = "Finestra", .caption = "Finestra", .clientWidth = 3000, .clientHeight = 2000}};
  std::vector<std::string> events;

  std::function<void()> Log(const std::string& event) {
    return [this, event] { events.push_back(event); };
  }
};

class ListBoxes : public Controls {
 protected:
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (int i = 0; i < list.ListCount(); ++i) rows.push_back(list.List(i));
    return rows;
  }
  ListBox list{form, "List1"};
};

TEST_F(ListBoxes, SortedKeepsRowsAlphabeticalAndTheSelectionOnItsRow) {
  list.SetSorted(true);
  for (const char* row : {"beta", "Alfa", "Èlite", "zeta", "alfa 2"}) list.AddItem(row);
  EXPECT_THAT(Rows(), ElementsAre("Alfa", "alfa 2", "beta", "zeta", "Èlite"));
  list.SetListIndex(2);
  list.AddItem("ALBA");
  EXPECT_EQ(list.Text(), "beta");
  EXPECT_EQ(list.ListIndex(), 3);
}

TEST_F(ListBoxes, WritingARowInPlaceDoesNotMoveIt) {
  list.SetSorted(true);
  for (const char* row : {"a", "b", "c"}) list.AddItem(row);
  list.SetList(0, "z");
  EXPECT_THAT(Rows(), ElementsAre("z", "b", "c"));
  list.AddItem("d");  // whatever its place, no row is lost
  EXPECT_EQ(list.ListCount(), 4);
}

TEST_F(Controls, OptionButtonsOfOneContainerExcludeEachOther) {
  Frame frame(form, "Frame1");
  OptionButton a(form, "a");
  OptionButton b(form, "b");
  OptionButton other(frame, "other");
  b.Click = [&] { events.push_back(a.Value() ? "b before a" : "b"); };
  a.Click = Log("a");
  other.SetValue(true);
  a.SetValue(true);
  b.SetValue(true);
  b.SetValue(true);
  EXPECT_THAT(events, ElementsAre("a", "b"));
  EXPECT_TRUE(other.Value());
}

TEST_F(Controls, TableMustNameEveryControlOnceAndGivesTheTabOrder) {
  CommandButton second(form, "second");
  CommandButton first(form, "first");
  const ControlRow good[] = {{"first"}, {"second"}};
  const ControlRow bad[] = {{"first"}, {"first"}};
  const ControlRow unknown[] = {{"first"}, {"third"}};
  EXPECT_THROW(form.LayOut(bad), std::logic_error);
  EXPECT_THROW(form.LayOut(unknown), std::logic_error);
  form.LayOut(good);
  EXPECT_EQ(form.Children().front(), &first);
}

class Trees : public Controls {
 protected:
  TreeView tree{form, "tree"};
};

TEST_F(Trees, RefusesAKeyThatExistsAndKeepsSortedChildrenSorted) {
  TreeNode& root = tree.Add("", "r", "root", "open");
  tree.Add("r", "b", "b", "closed");
  EXPECT_THROW(tree.Add("r", "b", "again", "closed"), RuntimeError);
  EXPECT_THROW(tree.Add("x", "y", "lost", "closed"), RuntimeError);
  tree.Add("r", "c", "C", "closed");
  tree.SetSorted(root, true);
  tree.Add("r", "a", "A", "closed");
  ASSERT_EQ(root.Children().size(), 3U);
  EXPECT_EQ(root.Children()[0]->Key(), "a");
  EXPECT_EQ(tree.Node(1).Key(), "r");
  EXPECT_EQ(tree.Node(4).Key(), "a");
  EXPECT_THROW(tree.Node(0), RuntimeError);
  EXPECT_THROW(tree.Node(5), RuntimeError);
}

class Windows : public Controls {
 protected:
  Windows() {
    main.Activate = Log("main active");
    form.Load = Log("load");
    form.Resize = Log("resize");
    form.Activate = Log("active");
    form.Unload = Log("unload");
    windows.ShowMain(main);
    events.clear();
  }
  ScriptedWindows windows;
  Form main{FormRow{.name = "Main", .caption = "Main"}};
};

TEST_F(Windows, CentredWindowHasTheSameRoomOnOppositeSides) {
  const Screen screen;
  form.CentreOn(screen);
  EXPECT_GT(form.Left(), 0);
  EXPECT_DOUBLE_EQ(form.Left(), screen.Width - form.Width() - form.Left());
  EXPECT_DOUBLE_EQ(form.Top(), screen.Height - form.Height() - form.Top());
}

TEST_F(Windows, LoadComesOnceAndTheWindowBelowIsActivatedLater) {
  windows.Modal["Finestra"] = {[](Form& f) { f.Hide(); }, [](Form& f) { f.UnloadForm(); }};
  windows.UserEvent([&] {
    windows.ShowModal(form);
    events.push_back("back");
  });
  EXPECT_THAT(events, ElementsAre("load", "resize", "active", "back", "main active"));
  events.clear();
  windows.UserEvent([&] {
    windows.ShowModal(form);
    windows.DoEvents();
    events.push_back("back");
  });
  EXPECT_THAT(events, ElementsAre("active", "unload", "main active", "back"));
}

TEST_F(Windows, GuardTellsAFailureAndTheProgramGoesOn) {
  windows.UserEvent([] { throw RuntimeError(ErrorNumber::FileNotFound, "File non trovato."); });
  ASSERT_EQ(windows.Boxes.size(), 1U);
  EXPECT_EQ(windows.Boxes[0].text, "File non trovato.");
  windows.UserEvent([] { throw std::out_of_range("a fault of the program"); });
  EXPECT_EQ(windows.Boxes.size(), 2U);
  windows.UserEvent(Log("next"));
  EXPECT_THAT(events, ElementsAre("next"));
}

TEST_F(Windows, NothingIsShownOrRunAfterTheEnd) {
  windows.UserEvent([&] {
    windows.End();
    windows.ShowModal(form);
  });
  windows.UserEvent(Log("late"));
  EXPECT_THAT(windows.ShownForms, ElementsAre("Main"));
  EXPECT_EQ(std::count(events.begin(), events.end(), "late"), 0);
}

}  // namespace
}  // namespace Morvane
