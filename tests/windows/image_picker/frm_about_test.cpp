#include "windows/image_picker/frm_about.h"

#include "picker_fixture.h"
#include "platform/controls/window_slot.h"

namespace Morvane {
namespace {

// The picker as the main window shows it.
class FrmAboutTest : public PickerTest {
 protected:
  FrmAboutTest() {
    WritePhotos({"a.jpg", "b.jpg"});
    hand = std::make_unique<Hand>(machine);
  }
  ~FrmAboutTest() override { hand.reset(); }

  // Opens the picker; `act` plays the user.
  void Use(const std::function<void(frmAbout&)>& act) {
    machine.Windows.Modal["frmAbout"].push_back([&](Form&) { act(slot.Get()); });
    slot.ShowModal(hand->windows);
  }
  static void ChooseRow(frmAbout& window, int row) {
    Hand::ClickRow(window.tvwdirtree, Hand::Row(window.tvwdirtree, "Foto"));
    Hand::ClickRow(window.List1, row);
  }

  WindowSlot<frmAbout> slot{[this] { return std::make_unique<frmAbout>(state, hand->platform, [] {}); }};
};

TEST_F(FrmAboutTest, EachWayToChooseSavesTheFolderAndComesBackAsItWas) {
  using Way = std::function<void(frmAbout&)>;
  const std::vector<Way> ways = {
      [](frmAbout& window) { Hand::Press(window.Command1); },
      [](frmAbout& window) { Hand::Press(window.Image1); },
      [](frmAbout&) { Hand::Key(Qt::Key_Return); },
      [](frmAbout& window) {
        auto& list = Hand::See<QAbstractItemView>(window.List1);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                           list.visualRect(list.currentIndex()).center());
      },
      [this](frmAbout& window) {
        machine.Windows.MenuChoices = {"menusele"};
        Hand::ClickRow(window.List1, 0, Qt::RightButton);
      },
  };
  for (const Way& way : ways) {
    state.ImmagineScelta = state.ImmaginePrecedente = state.FileFolder = "";
    Use([&](frmAbout& window) {
      ChooseRow(window, 1);
      way(window);
    });
    EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
    EXPECT_EQ(state.ImmaginePrecedente, "C:\\Foto\\b.jpg");
    EXPECT_THAT(machine.ReadFile("C:\\Morvane\\morvane.ini"),
                ::testing::HasSubstr("FileFolder=C:\\Foto\r\n"));
    machine.Files->Kill("C:\\Morvane\\morvane.ini");
  }
  Use([](frmAbout& window) {
    EXPECT_TRUE(Hand::See<QAbstractItemView>(window.List1).selectionModel()->isRowSelected(1));
    EXPECT_NE(window.Image1.GetPicture(), nullptr);
    Hand::Press(window.Command1);
  });
}

TEST_F(FrmAboutTest, CancelChoosesNothingTheTitleBarTheRowSelectedLastAndBothStartAfresh) {
  const std::pair<std::function<void(frmAbout&)>, std::string> ways[] = {
      {[](frmAbout&) { Hand::Key(Qt::Key_Escape); }, ""},
      {[](frmAbout& window) { Hand::Press(window.Command2); }, ""},
      {[](frmAbout& window) { Hand::See(window.form).close(); }, "C:\\Foto\\b.jpg"},
  };
  for (const auto& [way, chosen] : ways) {
    Use([&leave = way](frmAbout& window) {
      EXPECT_THAT(Hand::Rows(window.List1), ::testing::IsEmpty());
      ChooseRow(window, 1);
      leave(window);
    });
    EXPECT_EQ(state.ImmagineScelta, chosen);
    EXPECT_EQ(state.ImmaginePrecedente, "");
    EXPECT_EQ(state.FileFolder, "c:\\");
    EXPECT_FALSE(machine.Files->FileExists("C:\\Morvane\\morvane.ini"));
  }
}

TEST_F(PickerTest, ThePathOfAClickedNodeFillsTheLabel) {
  const std::string longName(60, 'x');
  machine.MakeFolder("C:\\" + longName);
  machine.WritePicture("C:\\radice.jpg", 100, 100);
  WritePhotos({"a.jpg", "b.jpg"});
  Open();
  const std::pair<std::string, std::string> paths[] = {
      {"Foto", "C:\\Foto\r\n"},  // one line: kept at the top of the label
      {"X" + longName.substr(1), "C:\\X" + longName.substr(1)},
      {"Desktop", "C:\\home\\u\\Scrivania"},
      {"Risorse del computer", ""},
  };
  EXPECT_EQ(picker->lblPath.Caption(), "");
  for (const auto& [node, path] : paths) {
    ClickNode(node);
    EXPECT_EQ(picker->lblPath.Caption(), path);
  }
  EXPECT_EQ(state.ImmagineScelta, "\\radice.jpg") << "no path lists the root of the current drive";
  ClickNode("Foto");
  EXPECT_EQ(state.CartellaAlbero, "C:\\Foto");
  Toggle(" (C:)");
  EXPECT_EQ(picker->lblPath.Caption(), "C:\r\n");
  EXPECT_EQ(Rows().size(), 2U) << "the list waits for a click";
}

}  // namespace
}  // namespace Morvane
