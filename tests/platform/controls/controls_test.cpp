#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/list_box.h"
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

TEST_F(Controls, SortedListKeepsItsSelectionOnItsRowAndARowWrittenInPlaceWhereItIs) {
  ListBox list(form, "List1");
  const auto rows = [&] {
    std::vector<std::string> all;
    for (int i = 0; i < list.ListCount(); ++i) all.push_back(list.List(i));
    return all;
  };
  list.SetSorted(true);
  for (const char* row : {"beta", "Alfa", "Èlite", "zeta"}) list.AddItem(row);
  EXPECT_EQ(list.List(0), "Alfa");
  list.AddItem("alfa 2");
  EXPECT_THAT(rows(), ElementsAre("Alfa", "alfa 2", "beta", "zeta", "Èlite"));
  list.SetListIndex(2);
  list.AddItem("ALBA");
  EXPECT_EQ(list.Text(), "beta");
  list.RemoveItem(0);
  EXPECT_EQ(list.Text(), "beta");
  list.SetList(0, "z");
  EXPECT_THAT(rows(), ElementsAre("z", "alfa 2", "beta", "zeta", "Èlite"));
  list.Clear();
  for (const char* row : {"b", "a"}) list.AddItem(row);
  EXPECT_THAT(rows(), ElementsAre("a", "b"));
}

TEST_F(Controls, OptionButtonsOfOneContainerExcludeEachOther) {
  Frame frame(form, "Frame1");
  OptionButton a(form, "a"), b(form, "b"), other(frame, "other");
  b.Click = [&] { events.push_back(a.Value() ? "b before a" : "b"); };
  a.Click = Log("a");
  other.SetValue(true);
  for (OptionButton* const chosen : {&a, &b, &b}) chosen->SetValue(true);
  EXPECT_THAT(events, ElementsAre("a", "b"));
  EXPECT_TRUE(other.Value());
}

TEST_F(Controls, TableMustNameEveryControlOnceAndGivesTheTabOrder) {
  CommandButton second(form, "second"), first(form, "first");
  for (const char* bad : {"first", "third"}) {
    const ControlRow rows[] = {{"first"}, {bad}};
    EXPECT_THROW(form.LayOut(rows), std::logic_error);
  }
  const ControlRow good[] = {{"first"}, {"second"}};
  form.LayOut(good);
  EXPECT_EQ(form.Children().front(), &first);
}

TEST_F(Controls, TreeRefusesAKeyThatExistsAndKeepsSortedChildrenSorted) {
  TreeView tree(form, "tree");
  TreeNode& root = tree.Add("", "r", "root", "open");
  tree.Add("r", "b", "b", "closed");
  EXPECT_THROW(tree.Add("r", "b", "again", "closed"), RuntimeError);
  EXPECT_THROW(tree.Add("x", "y", "lost", "closed"), RuntimeError);
  tree.SetSorted(root, true);
  tree.Add("r", "a", "A", "closed");
  EXPECT_EQ(root.Children().at(0)->Key(), "a");
  EXPECT_EQ(&tree.Node(1), &root);
  for (const int none : {0, 4}) EXPECT_THROW(tree.Node(none), RuntimeError);
}

TEST_F(Controls, WindowLoadsOnceFailsAloudAndShowsNothingAfterTheEnd) {
  ScriptedWindows windows;
  Form main{FormRow{.name = "Main", .caption = "Main"}};
  windows.ShowMain(main);
  main.Activate = Log("main active");
  form.Load = Log("load");
  form.Activate = Log("active");
  form.Unload = Log("unload");
  windows.Modal["Finestra"] = {[](Form& f) { f.Hide(); }, [](Form& f) { f.UnloadForm(); }};
  const auto show = [&] {
    windows.ShowModal(form);
    windows.DoEvents();
    events.push_back("back");
  };
  windows.UserEvent(show);
  windows.UserEvent(show);
  EXPECT_THAT(events, ElementsAre("load", "active", "main active", "back", "active", "unload", "main active",
                                  "back"));
  windows.UserEvent([] { throw RuntimeError(ErrorNumber::FileNotFound, "File non trovato."); });
  windows.UserEvent([] { throw std::out_of_range("a fault of the program"); });
  ASSERT_EQ(windows.Boxes.size(), 2U);
  EXPECT_EQ(windows.Boxes[0].text, "File non trovato.");
  events.clear();
  windows.UserEvent([&] {
    events.push_back("still runs");
    windows.End();
    windows.ShowModal(form);
  });
  windows.UserEvent(Log("late"));
  EXPECT_THAT(events, testing::Not(testing::Contains("late")));
  EXPECT_EQ(events.at(0), "still runs");
  EXPECT_EQ(windows.ShownForms.back(), "Finestra");
  EXPECT_EQ(windows.ShownForms.size(), 3U);
}

}  // namespace
}  // namespace Morvane
