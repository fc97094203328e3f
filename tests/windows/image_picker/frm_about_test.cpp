#include "windows/image_picker/frm_about.h"

#include <memory>

#include "picker_machine.h"
#include "platform/controls/window_slot.h"

namespace Morvane {

namespace {

class FrmAboutTest : public PickerTest {
 protected:
  FrmAboutTest() {
    machine.WritePicture("C:\\Foto\\a.jpg", 100, 100);
    machine.WritePicture("C:\\Foto\\b.jpg", 100, 100);
    state.FileFolder = "c:\\";
  }

  // Opens the picker; `act` plays the user.
  void Use(std::function<void(frmAbout&)> act) {
    machine.Windows.Modal["frmAbout"].push_back([this, act](Form&) { act(slot.Get()); });
    slot.ShowModal(hand.windows);
  }

  static void ChooseRow(frmAbout& picker, int row) {
    ClickNode(picker, "Foto");
    ClickRow(picker, row);
  }

  WindowSlot<frmAbout> slot{[this] { return std::make_unique<frmAbout>(state, hand.platform, [] {}); }};
};

TEST_F(FrmAboutTest, OkSavesTheFolderAndComesBackAsItWas) {
  Use([](frmAbout& picker) {
    ChooseRow(picker, 1);
    Hand::Press(picker.Command1);
  });
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
  EXPECT_EQ(state.ImmaginePrecedente, "C:\\Foto\\b.jpg");
  EXPECT_EQ(state.FileFolder, "C:\\Foto");
  EXPECT_THAT(machine.ReadFile("C:\\Morvane\\morvane.ini"), ::testing::HasSubstr("FileFolder=C:\\Foto\r\n"));
  Use([](frmAbout& picker) {
    EXPECT_EQ(picker.List1.ListIndex(), 1);
    EXPECT_NE(picker.Image1.GetPicture(), nullptr);
    Hand::Press(picker.Image1);
  });
}

TEST_F(FrmAboutTest, CancelChoosesNothingAndStartsAfresh) {
  Use([](frmAbout& picker) {
    ChooseRow(picker, 1);
    Hand::Key(Qt::Key_Escape);
  });
  EXPECT_EQ(state.ImmagineScelta, "");
  EXPECT_EQ(state.FileFolder, "c:\\");
  Use([](frmAbout& picker) {
    EXPECT_THAT(Rows(picker), ::testing::IsEmpty());
    Hand::Press(picker.Command2);
  });
}

TEST_F(FrmAboutTest, TheTitleBarKeepsTheRowSelectedLast) {
  Use([](frmAbout& picker) {
    ChooseRow(picker, 1);
    Hand::See(picker.form).close();
  });
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
  EXPECT_EQ(state.ImmaginePrecedente, "");
  EXPECT_EQ(state.FileFolder, "c:\\");
  EXPECT_FALSE(machine.Files->FileExists("C:\\Morvane\\morvane.ini"));
  EXPECT_EQ(slot.Get().List1.ListCount(), 0);
}

TEST_F(FrmAboutTest, EnterDoubleClickAndMenuChooseTheRow) {
  using Way = std::function<void(frmAbout&)>;
  const std::vector<Way> ways = {
      [](frmAbout&) { Hand::Key(Qt::Key_Return); },
      [](frmAbout& picker) {
        auto& list = Hand::See<QAbstractItemView>(picker.List1);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                           list.visualRect(list.currentIndex()).center());
      },
      [this](frmAbout& picker) {
        machine.Windows.MenuChoices = {"menusele"};
        ClickRow(picker, 0, Qt::RightButton);
      },
  };
  for (const Way& way : ways) {
    state.ImmaginePrecedente.clear();
    Use([&](frmAbout& picker) {
      ChooseRow(picker, 0);
      way(picker);
    });
    EXPECT_EQ(state.ImmaginePrecedente, "C:\\Foto\\a.jpg");
    EXPECT_GT(slot.Get().List1.ListCount(), 0);
  }
}

TEST_F(FrmAboutTest, ThePathOfAClickedNodeFillsTheLabel) {
  const std::string longName(60, 'x');
  machine.MakeFolder("C:\\" + longName);
  machine.WritePicture("C:\\radice.jpg", 100, 100);
  Open();
  EXPECT_EQ(window.lblPath.Caption(), "");
  ClickNode("Foto");
  EXPECT_EQ(window.lblPath.Caption(), "C:\\Foto\r\n");  // one line: kept at the top of the label
  EXPECT_EQ(state.CartellaAlbero, "C:\\Foto");
  EXPECT_EQ(state.CartellaImmagini, "C:\\Foto\\");
  ClickNode("X" + longName.substr(1));
  EXPECT_EQ(window.lblPath.Caption(), "C:\\X" + longName.substr(1));
  ClickNode("Desktop");
  EXPECT_EQ(window.lblPath.Caption(), "C:\\home\\u\\Scrivania");
  ClickNode("Risorse del computer");
  EXPECT_EQ(window.lblPath.Caption(), "");
  EXPECT_EQ(state.ImmagineScelta, "\\radice.jpg");  // no path lists the root of the current drive

  ClickNode("Foto");
  Toggle(" (C:)");
  EXPECT_EQ(window.lblPath.Caption(), "C:\r\n");
  EXPECT_EQ(window.List1.ListCount(), 2);  // the list waits for a click
}

}  // namespace

}  // namespace Morvane
