#include "windows/side_windows/form3.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>

#include "core/web_addresses.h"
#include "tests/hand/hand.h"

namespace Morvane {
namespace {

constexpr char kFile[] = "C:\\Morvane\\morvane_fileid.txt";

class InformationWindow : public ::testing::Test {
 protected:
  InformationWindow() { state.AppPath = "C:\\Morvane\\"; }

  void Load(const std::string& text) {
    machine.WriteFile(kFile, text);
    window.form.EnsureLoaded();
  }
  std::vector<TextShape> Texts() const {
    std::vector<TextShape> texts;
    for (const Shape& shape : window.Picture5.Surface.Drawing()) {
      if (const auto* text = std::get_if<TextShape>(&shape)) texts.push_back(*text);
    }
    return texts;
  }
  std::size_t Shapes() const { return window.Picture5.Surface.Drawing().size(); }

  TestMachine machine;
  AppState state;
  Hand hand{machine};
  Form3 window{state, hand.platform};
};

TEST_F(InformationWindow, EachLineIsCentredInItsBlackTextWithAGreyOneUpAndLeft) {
  Load("Uno\r\n\r\nDue \xE8\r\n");
  const auto texts = Texts();
  ASSERT_EQ(texts.size(), 4U);
  const double lineHeight = machine.Metrics.LineHeight(texts[0].font);
  EXPECT_EQ(texts[0].color, QBColor(7));
  EXPECT_EQ(texts[1].color, QBColor(0));
  EXPECT_EQ(texts[1].left - texts[0].left, 30);
  EXPECT_EQ(texts[1].top - texts[0].top, 30);
  for (const int line : {0, 2}) {
    const double width = machine.Metrics.Width(texts[line].font, texts[line].text);
    EXPECT_NEAR(2 * texts[line].left + width, window.Picture5.Width(), 1e-6);
  }
  EXPECT_EQ(texts[2].text, "Due è");
  EXPECT_NEAR(texts[2].top, 2 * (lineHeight + 30), 1e-6) << "an empty line takes its place";
  EXPECT_NEAR(window.Picture5.Height(), 6 * lineHeight, 1e-6) << "the shadows are not counted";
  EXPECT_GT(Shapes(), texts.size() + 10) << "ruled";
}

TEST_F(InformationWindow, WidestLineSetsOneFontForAll) {
  const std::pair<std::string, double> cases[] = {{"Corta\r\n", 39},
                                                  {"Corta\r\n" + std::string(20, 'x') + "\r\nCorta\r\n", 22},
                                                  {std::string(100'000, 'x'), 1}};
  for (const auto& [text, size] : cases) {
    Load(text);
    window.inizia();
    for (const TextShape& line : Texts()) EXPECT_EQ(line.font.size, size);
    EXPECT_FALSE(Texts().empty());
  }
}

TEST_F(InformationWindow, WithoutAReadableFileTheStripIsEmpty) {
  window.form.EnsureLoaded();
  EXPECT_TRUE(Texts().empty());
  const auto ruled = std::pair(Shapes(), window.Picture5.Height());
  Load("");
  window.inizia();
  EXPECT_EQ(std::pair(Shapes(), window.Picture5.Height()), ruled);
  machine.MakeFolder("C:\\Altra\\morvane_fileid.txt");
  state.AppPath = "C:\\Altra\\";
  window.inizia();
  EXPECT_EQ(std::pair(Shapes(), window.Picture5.Height()), ruled);
}

TEST_F(InformationWindow, StripMovesUpAndReadsTheFileAgainOnceItIsOutOfSight) {
  Load(std::string(40, 'x') + "\r\n");
  EXPECT_EQ(window.Picture5.Top(), 930);
  machine.WriteFile(kFile, "Nuovo\r\n");
  window.Timer1.PerformTick();
  EXPECT_EQ(window.Picture5.Top(), 925);
  window.Picture5.SetTop(905 - window.Picture5.Height());
  window.Timer1.PerformTick();  // exactly 900 from the top: goes on
  EXPECT_EQ(Texts()[0].text.size(), 40U);
  window.Timer1.PerformTick();
  EXPECT_EQ(window.Picture5.Top(), 930);
  EXPECT_EQ(Texts()[0].text, "Nuovo");
  EXPECT_EQ(Texts()[0].font.size, 39);
}

TEST_F(InformationWindow, StripAndDiscTurnByThemselvesUntilTheWindowIsClosed) {
  machine.WriteFile(kFile, "Uno\r\n");
  hand.Show(window.form);
  const std::string frame = window.Picture2.ImageKey();
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return window.Picture2.ImageKey() != frame && Hand::See(window.Picture5).y() < 930 / 15; }));
  for (int frames = 1; frames < 8; ++frames) window.TimerAnimazione.PerformTick();
  EXPECT_EQ(window.Picture2.ImageKey(), frame);
  Hand::Point(window.Picture3, 100, 100);
  Hand::Key(Qt::Key_Return);
  EXPECT_TRUE(window.form.Unloaded());
  EXPECT_FALSE(window.Timer1.Running() || window.TimerAnimazione.Running());
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
}

TEST_F(InformationWindow, LeftButtonHurriesTheTextAndAnyOtherSlowsItWithinLimits) {
  hand.Show(window.form);
  window.Timer1.SetRunning(false);
  const auto click = [&](Qt::MouseButton button, int times) {
    for (int i = 0; i < times; ++i) Hand::Click(window.Picture5, 900, 15, button);
    return window.Timer1.Interval();
  };
  EXPECT_EQ(click(Qt::LeftButton, 0), 3);
  EXPECT_EQ(click(Qt::LeftButton, 4), 1);
  EXPECT_EQ(click(Qt::RightButton, 1), 2);
  EXPECT_EQ(click(Qt::MiddleButton, 1), 3);
  EXPECT_EQ(click(Qt::ExtraButton1, 120), 101);
  EXPECT_EQ(click(Qt::LeftButton, 1), 100);
  Hand::Click(window.Picture4, 900, 1700);
  EXPECT_EQ(window.Timer1.Interval(), 100) << "beside the text";
}

TEST_F(InformationWindow, LinksOpenTheirTargetsAndTheLogoAloneHasTheHand) {
  machine.platform.app.version = "2.6.12";
  window.form.EnsureLoaded();
  hand.Show(window.form);
  EXPECT_EQ(2 * window.form.Left() + window.form.Width(), machine.TheScreen.Width);
  EXPECT_EQ(2 * window.form.Top() + window.form.Height(), machine.TheScreen.Height);
  for (const Control* link : {&window.Picture3, &window.Picture6, &window.Picture7}) Hand::Press(*link);
  EXPECT_THAT(machine.Launches.Opened,
              ::testing::ElementsAre(WebAddresses::kMakerSite, "OMK.HTM", WebAddresses::kDonation));
  for (const Control* other :
       {static_cast<Control*>(&window.Command3d1), static_cast<Control*>(&window.Picture2),
        static_cast<Control*>(&window.Frame1), static_cast<Control*>(&window.Frame2)}) {
    Hand::Point(window.Picture3, 100, 100);
    EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Custom) << other->Name();
    Hand::Point(*other, 60, 60);
    EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default) << other->Name();
  }
  Hand::Click(window.Frame2, 60, 6800);
  EXPECT_TRUE(window.form.Unloaded());
}

}  // namespace
}  // namespace Morvane
