#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/list_box.h"
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

TEST_F(Controls, ListAndTreeRefuseRowsOutsideThemAndKeysThatExist) {
  ListBox list(form, "list");
  for (const char* row : {"b", "a"}) list.AddItem(row);
  EXPECT_EQ(list.List(0) + list.List(1), "ba");
  TreeView tree(form, "tree");
  TreeNode& root = tree.Add("", "r", "root", "open");
  EXPECT_EQ(&tree.Node(1), &root);
  EXPECT_THROW(tree.Add("r", "r", "again", "closed"), RuntimeError);
  EXPECT_THROW(tree.Add("x", "y", "lost", "closed"), RuntimeError);
  for (const int none : {-1, 2}) {
    EXPECT_THROW(list.RemoveItem(none), RuntimeError);
    EXPECT_THROW(tree.Node(none), RuntimeError);
  }
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
  windows.UserEvent([] { throw std::bad_alloc(); });
  ASSERT_EQ(windows.Boxes.size(), 2U);
  EXPECT_EQ(windows.Boxes[0].text, "File non trovato.");
  windows.UserEvent([&] { windows.End(); });
  windows.UserEvent(Log("late"));
  windows.ShowModal(form);
  EXPECT_EQ(events.size(), 8U);
}

}  // namespace
}  // namespace Morvane
