#include "windows/side_windows/form2.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/web_addresses.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

TEST(PdfToolWindow, LinkOpensTheProjectPageAndTheWindowStays) {
  TestMachine machine;
  AppState state;
  Form2 window(state, machine.platform);
  window.form.EnsureLoaded();
  EXPECT_TRUE(window.Label1.HasHandPointer());
  window.Label1.PerformClick();
  ASSERT_EQ(machine.Launches.Opened.size(), 1U);
  EXPECT_EQ(machine.Launches.Opened[0].target, WebAddresses::kPdfCreator);
  EXPECT_THAT(window.Text1.Text(), ::testing::HasSubstr(std::string(WebAddresses::kPdfCreator)));
  EXPECT_FALSE(window.form.Unloaded());
  window.Command1.PerformClick();
  EXPECT_TRUE(window.form.Unloaded());
}

}  // namespace
}  // namespace Morvane
