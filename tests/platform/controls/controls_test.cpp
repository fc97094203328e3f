#include <gtest/gtest.h>

#include <new>

#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

TEST(WindowSystem, TellsWhateverFailsGoesOnAndDoesNothingAfterTheEnd) {
  ScriptedWindows windows;
  windows.Dispatch([] { throw RuntimeError(ErrorNumber::FileNotFound, "File non trovato."); });
  windows.Dispatch([] { throw std::bad_alloc(); });
  ASSERT_EQ(windows.Boxes.size(), 2U);
  EXPECT_EQ(windows.Boxes[0], "File non trovato.");
  windows.Dispatch([&] { windows.End(); });
  bool isDone = false;
  windows.Dispatch([&] { isDone = true; });
  EXPECT_FALSE(isDone);
}

}  // namespace
}  // namespace Morvane
