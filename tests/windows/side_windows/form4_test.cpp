#include "windows/side_windows/form4.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/web_addresses.h"
#include "tests/hand/hand.h"

namespace Morvane {
namespace {

class CoverSearch : public ::testing::Test {
 protected:
  // What is opened for a term and a kind, behind the site's root.
  std::string Search(const std::string& term, int kind = 0) {
    Hand hand(machine);
    Form4 open(state, hand.platform);
    hand.Show(open.form);
    Hand::Press(open.List1);
    for (int i = 0; i < 9; ++i) Hand::Key(Qt::Key_Up);
    for (int i = 0; i < kind; ++i) Hand::Key(Qt::Key_Down);
    Hand::Type(open.Text1, term);
    machine.Launches.Opened.clear();
    Hand::Key(Qt::Key_Return);
    EXPECT_TRUE(open.form.Unloaded());
    if (machine.Launches.Opened.size() != 1) return "opened nothing, or more than one";
    const std::string target = machine.Launches.Opened[0];
    EXPECT_THAT(target, ::testing::StartsWith(std::string(WebAddresses::kCoverSearchRoot) + "/"));
    return target.substr(WebAddresses::kCoverSearchRoot.size());
  }

  TestMachine machine;
  AppState state;
};

TEST_F(CoverSearch, AddressHasTheTermTrimmedInLowerCaseUnescapedAndTheKind) {
  EXPECT_EQ(Search("  Pink Floyd "), "/search.php?terms=pink floyd&group=audio");
  EXPECT_EQ(Search("PERCHÉ", 1), "/search.php?terms=perché&group=video");
  EXPECT_EQ(Search("   ", 2), "/search.php?terms=&group=pc") << "blanks alone pass the test";
  EXPECT_EQ(Search("Tom&Jerry=100%", 3), "/search.php?terms=tom&jerry=100%&group=console");
}

TEST_F(CoverSearch, WithoutATermAsksForOneAndStaysOpen) {
  Hand hand(machine);
  Form4 window(state, hand.platform);
  hand.Show(window.form);
  EXPECT_EQ(2 * window.form.Left() + window.form.Width(), machine.TheScreen.Width);
  Hand::Press(window.List1);
  Hand::Press(window.Command1);
  ASSERT_EQ(machine.Windows.Boxes.size(), 1U);
  EXPECT_EQ(machine.Windows.Boxes[0].text, "Inserire prima un argomento di ricerca");
  EXPECT_EQ(machine.Windows.Boxes[0].buttons, MsgBoxButtons::Ok);
  EXPECT_TRUE(Hand::See(window.Text1).hasFocus());
  EXPECT_FALSE(window.form.Unloaded());
  Hand::Key(Qt::Key_Escape);
  EXPECT_TRUE(window.form.Unloaded());
  EXPECT_TRUE(machine.Launches.Opened.empty());
}

}  // namespace
}  // namespace Morvane
