#include "windows/side_windows/form2.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/web_addresses.h"
#include "tests/hand/hand.h"

namespace Morvane {
namespace {

TEST(PdfToolWindow, LinkOpensTheProjectPageAndEnterPressesTheButton) {
  TestMachine machine;
  AppState state;
  Hand hand(machine);
  Form2 window(state, hand.platform);
  hand.Show(window.form);
  EXPECT_EQ(Hand::See(window.Label1).cursor().shape(), Qt::BitmapCursor) << "the program's own hand";
  Hand::Press(window.Label1);
  ASSERT_EQ(machine.Launches.Opened.size(), 1U);
  EXPECT_EQ(machine.Launches.Opened[0], WebAddresses::kPdfCreator);
  EXPECT_THAT(window.Text1.Text(), ::testing::HasSubstr(std::string(WebAddresses::kPdfCreator)));
  Hand::HoldDown(Qt::Key_Return);
  Hand::Key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_FALSE(window.form.Unloaded());
  Hand::Key(Qt::Key_Return);
  EXPECT_TRUE(window.form.Unloaded());
  EXPECT_EQ(machine.Launches.Opened.size(), 1U);
}

}  // namespace
}  // namespace Morvane
