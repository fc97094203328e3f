#include <gtest/gtest.h>

#include <new>

#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

TEST(WindowSystem, TellsWhateverFailsGoesOnAndDoesNothingAfterTheEnd) {
  ScriptedWindows windows;
  windows.UserEvent([] { throw RuntimeError(ErrorNumber::FileNotFound, "File non trovato."); });
  windows.UserEvent([] { throw std::bad_alloc(); });
  ASSERT_EQ(windows.Boxes.size(), 2U);
  EXPECT_EQ(windows.Boxes[0], "File non trovato.");
  windows.UserEvent([&] { windows.End(); });
  bool isDone = false;
  windows.UserEvent([&] { isDone = true; });
  EXPECT_FALSE(isDone);
}

}  // namespace
}  // namespace Morvane
