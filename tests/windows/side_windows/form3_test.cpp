#include "windows/side_windows/form3.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/web_addresses.h"
#include "tests/hand/hand.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr char kFile[] = "C:\\Morvane\\morvane_fileid.txt";
constexpr double kStripWidth = 4455;

class InformationWindow : public ::testing::Test {
 protected:
  InformationWindow() { state.AppPath = "C:\\Morvane\\"; }

  template <typename T>
  std::vector<T> Drawn() const {
    std::vector<T> shapes;
    for (const Shape& shape : window.Picture5.Surface.Drawing()) {
      if (const T* one = std::get_if<T>(&shape)) shapes.push_back(*one);
    }
    return shapes;
  }

  double FontSize() const { return window.Picture5.Surface.GetFont().size; }

  TestMachine machine;
  AppState state;
  Form3 window{state, machine.platform};
};

TEST_F(InformationWindow, OpensWithItsVersionAndBothTimersOn) {
  machine.platform.app = {.title = "Morvane", .path = "C:\\Morvane", .version = "2.6.12"};
  window.form.EnsureLoaded();
  EXPECT_EQ(window.lblVersion.Caption(), "Ver.2.6.12");
  EXPECT_EQ(window.Picture5.Top(), 930);
  EXPECT_EQ(window.Timer1.Interval(), 3);
  EXPECT_TRUE(window.Timer1.Running());
  EXPECT_TRUE(window.TimerAnimazione.Running());
}

TEST_F(InformationWindow, PrintsEachLineCentredWithItsShadowUpAndLeft) {
  machine.WriteFile(kFile, "Uno\r\n\r\nDue \xE8\r\n");
  window.form.EnsureLoaded();
  const auto texts = Drawn<TextShape>();
  ASSERT_EQ(texts.size(), 4U);
  const double lineHeight = 39 * kTwipsPerPoint * 1.15;
  EXPECT_EQ(texts[0].text, "Uno");
  EXPECT_EQ(texts[0].color, QBColor(7));
  EXPECT_EQ(texts[0].font, (Font{.name = "Tahoma", .size = 39}));
  EXPECT_DOUBLE_EQ(texts[0].left, (kStripWidth - 3 * 390) / 2);
  EXPECT_DOUBLE_EQ(texts[0].top, 0);
  EXPECT_EQ(texts[1].color, QBColor(0));
  EXPECT_DOUBLE_EQ(texts[1].left, texts[0].left + 30);
  EXPECT_DOUBLE_EQ(texts[1].top, 30);
  EXPECT_EQ(texts[2].text, "Due è");
  EXPECT_DOUBLE_EQ(texts[2].top, 2 * (lineHeight + 30));
}

TEST_F(InformationWindow, StripCountsNoShadowsSoALongTextRunsOffItsFoot) {
  std::string text;
  for (int i = 0; i < 120; ++i) text += "Riga\r\n";
  machine.WriteFile(kFile, text);
  window.form.EnsureLoaded();
  const double lineHeight = 39 * kTwipsPerPoint * 1.15;
  EXPECT_DOUBLE_EQ(window.Picture5.Height(), 123 * lineHeight);
  EXPECT_GT(Drawn<TextShape>().back().top, window.Picture5.Height());
}

TEST_F(InformationWindow, WidestLineSetsOneFontForAll) {
  machine.WriteFile(kFile, "Corta\r\n" + std::string(20, 'x') + "\r\nCorta\r\n");
  window.form.EnsureLoaded();
  EXPECT_DOUBLE_EQ(FontSize(), 22);  // 20 characters of half its size fit into 4415 twips
  for (const TextShape& text : Drawn<TextShape>()) EXPECT_DOUBLE_EQ(text.font.size, 22);
}

TEST_F(InformationWindow, LineThatFitsInNoFontEndsAtTheSmallest) {
  machine.WriteFile(kFile, std::string(100000, 'x'));
  window.form.EnsureLoaded();
  EXPECT_DOUBLE_EQ(FontSize(), 1);
  EXPECT_EQ(Drawn<TextShape>().size(), 2U);
}

TEST_F(InformationWindow, WithoutAFileOrALineShowsARuledStrip) {
  window.form.EnsureLoaded();
  EXPECT_TRUE(Drawn<TextShape>().empty());
  EXPECT_GE(Drawn<LineShape>().size(), 3U);
  const double height = window.Picture5.Height();

  machine.WriteFile(kFile, "");
  window.inizia();
  EXPECT_TRUE(Drawn<TextShape>().empty());
  EXPECT_DOUBLE_EQ(window.Picture5.Height(), height);

  machine.MakeFolder("C:\\Altra\\morvane_fileid.txt");
  state.AppPath = "C:\\Altra\\";
  EXPECT_NO_THROW(window.inizia());
  EXPECT_TRUE(machine.Windows.Boxes.empty());
}

TEST_F(InformationWindow, MovesTheStripAndReadsTheFileAgainAtTheWrap) {
  machine.WriteFile(kFile, std::string(40, 'x') + "\r\n");
  window.form.EnsureLoaded();
  const std::size_t shapes = window.Picture5.Surface.Drawing().size();
  const double height = window.Picture5.Height();
  machine.WriteFile(kFile, "Nuovo\r\n");

  window.Timer1.PerformTick();
  EXPECT_EQ(window.Picture5.Top(), 925);
  window.Picture5.SetTop(905 - height);
  window.Timer1.PerformTick();  // exactly 900: goes on
  EXPECT_EQ(window.Picture5.Top(), 900 - height);
  EXPECT_EQ(window.Picture5.Surface.Drawing().size(), shapes);

  window.Timer1.PerformTick();
  EXPECT_EQ(window.Picture5.Top(), 930);
  EXPECT_EQ(Drawn<TextShape>().front().text, "Nuovo");
  EXPECT_DOUBLE_EQ(FontSize(), 39);
}

TEST_F(InformationWindow, SpeedStaysBetweenOneAndAHundredAndOneMilliseconds) {
  const auto press = [&](MouseButton button) { window.Picture5.PerformMouseDown(button, 10, 10); };
  for (int i = 0; i < 4; ++i) press(MouseButton::Left);
  EXPECT_EQ(window.Timer1.Interval(), 1);
  press(MouseButton::Right);
  press(MouseButton::Middle);
  EXPECT_EQ(window.Timer1.Interval(), 3);
  for (int i = 0; i < 120; ++i) press(MouseButton::Right);
  EXPECT_EQ(window.Timer1.Interval(), 101);
  press(MouseButton::Left);
  EXPECT_EQ(window.Timer1.Interval(), 100);
}

TEST_F(InformationWindow, LinksOpenTheirTargets) {
  window.Picture3.PerformClick();
  window.Picture6.PerformClick();
  window.Picture7.PerformClick();
  EXPECT_THAT(machine.Launches.Opened,
              ElementsAre(WebAddresses::kMakerSite, "OMK.HTM", HasSubstr("/it/xclick/business=")));
  EXPECT_THAT(machine.Launches.Opened[2], HasSubstr("&item_name=Morvane&no_note=1&tax=0&currency_code=EUR"));
}

TEST_F(InformationWindow, PointerIsAHandOverTheLogoOnly) {
  for (Control* other : std::vector<Control*>{&window.Command3d1, &window.Picture2, &window.Frame2}) {
    window.Picture3.PerformMouseMove(1, 1);
    EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Custom);
    other->PerformMouseMove(1, 1);
    EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default) << other->Name();
  }
}

TEST_F(InformationWindow, ClosingStopsTheTimersAndGivesThePointerBack) {
  window.form.EnsureLoaded();
  window.Picture3.PerformMouseMove(1, 1);
  window.Frame2.PerformClick();
  EXPECT_TRUE(window.form.Unloaded());
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
  EXPECT_FALSE(window.Timer1.Running());
  EXPECT_FALSE(window.TimerAnimazione.Running());
}

TEST_F(InformationWindow, EnterClosesItAtFirstAndAllButTheLeftButtonSlowTheText) {
  Hand hand(machine);
  Form3 seen(state, hand.platform);
  hand.Show(seen.form);
  Hand::Click(seen.Picture4, 900, 1500);
  const int interval = seen.Timer1.Interval();
  for (const auto button : {Qt::RightButton, Qt::MiddleButton, Qt::ExtraButton1}) {
    Hand::Click(seen.Picture5, 900, 15, button);
  }
  EXPECT_EQ(seen.Timer1.Interval(), interval + 3);
  Hand::Key(Qt::Key_Return);
  EXPECT_TRUE(seen.form.Unloaded());
  EXPECT_TRUE(machine.Launches.Opened.empty());
}

}  // namespace
}  // namespace Morvane
