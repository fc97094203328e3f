#include "windows/side_windows/form2.h"

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
  EXPECT_EQ(2 * window.form.Left() + window.form.Width(), machine.TheScreen.Width);
  EXPECT_EQ(Hand::See(window.Label1).cursor().shape(), Qt::BitmapCursor) << "the program's own hand";
  Hand::Press(window.Label1);
  EXPECT_EQ(machine.Launches.Opened, std::vector<std::string>{std::string(WebAddresses::kPdfCreator)});
  Hand::Type(window.Text1, "x");
  EXPECT_GT(window.Text1.Text().size(), 100U) << "read-only";
  Hand::HoldDown(Qt::Key_Return);
  Hand::Key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_FALSE(window.form.Unloaded());
  Hand::Key(Qt::Key_Escape);
  EXPECT_TRUE(window.form.Unloaded());
}

}  // namespace
}  // namespace Morvane
