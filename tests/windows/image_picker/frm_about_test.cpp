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
  void Open(std::function<void(frmAbout&)> act) {
    windows.Modal["frmAbout"].push_back([this, act](Form&) { act(slot.Get()); });
    slot.ShowModal(windows);
  }

  static void ChooseRow(frmAbout& picker, int row) {
    picker.tvwdirtree.UserClicks(*picker.tvwdirtree.Find("C:\\Foto"));
    picker.List1.UserSelects(row);
  }

  WindowSlot<frmAbout> slot{[this] { return std::make_unique<frmAbout>(state, platform, [] {}); }};
};

TEST_F(FrmAboutTest, OkSavesTheFolderAndComesBackAsItWas) {
  Open([](frmAbout& picker) {
    ChooseRow(picker, 1);
    picker.Command1.PerformClick();
  });
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
  EXPECT_EQ(state.ImmaginePrecedente, "C:\\Foto\\b.jpg");
  EXPECT_EQ(state.FileFolder, "C:\\Foto");
  EXPECT_THAT(machine.ReadFile("C:\\Morvane\\morvane.ini"), ::testing::HasSubstr("FileFolder=C:\\Foto\r\n"));
  Open([](frmAbout& picker) {
    EXPECT_EQ(picker.List1.ListIndex(), 1);
    EXPECT_NE(picker.Image1.GetPicture(), nullptr);
    picker.Image1.PerformClick();
  });
}

TEST_F(FrmAboutTest, CancelChoosesNothingAndStartsAfresh) {
  Open([](frmAbout& picker) {
    ChooseRow(picker, 1);
    picker.List1.PerformKeyDown(27);
  });
  EXPECT_EQ(state.ImmagineScelta, "");
  EXPECT_EQ(state.FileFolder, "c:\\");
  Open([](frmAbout& picker) {
    EXPECT_EQ(picker.List1.ListCount(), 0);
    picker.Command2.PerformClick();
  });
}

TEST_F(FrmAboutTest, TheTitleBarKeepsTheRowSelectedLast) {
  Open([](frmAbout& picker) {
    ChooseRow(picker, 1);
    picker.form.UnloadForm();
  });
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
  EXPECT_EQ(state.ImmaginePrecedente, "");
  EXPECT_EQ(state.FileFolder, "c:\\");
  EXPECT_FALSE(files.FileExists("C:\\Morvane\\morvane.ini"));
  EXPECT_EQ(slot.Get().List1.ListCount(), 0);
}

TEST_F(FrmAboutTest, EnterDoubleClickAndMenuChooseTheRow) {
  using Way = std::function<void(frmAbout&)>;
  const std::vector<Way> ways = {[](frmAbout& picker) { picker.List1.PerformKeyDown(13); },
                                 [](frmAbout& picker) { picker.List1.PerformDblClick(); },
                                 [this](frmAbout& picker) {
                                   windows.MenuChoices = {"menusele"};
                                   picker.List1.PerformMouseDown(MouseButton::Right, 0, 1, 1);
                                 }};
  for (const Way& way : ways) {
    state.ImmaginePrecedente.clear();
    Open([&](frmAbout& picker) {
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
  window.form.EnsureLoaded();
  EXPECT_EQ(window.lblPath.Caption(), "");
  ClickNode("C:\\Foto");
  EXPECT_EQ(window.lblPath.Caption(), "C:\\Foto\r\n");  // one line: kept at the top of the label
  EXPECT_EQ(state.CartellaAlbero, "C:\\Foto");
  EXPECT_EQ(state.CartellaImmagini, "C:\\Foto\\");
  ClickNode("C:\\X" + longName.substr(1));
  EXPECT_EQ(window.lblPath.Caption(), "C:\\X" + longName.substr(1));
  ClickNode("desk");
  EXPECT_EQ(window.lblPath.Caption(), "C:\\home\\u\\Scrivania");
  ClickNode("root");
  EXPECT_EQ(window.lblPath.Caption(), "");
  EXPECT_EQ(state.ImmagineScelta, "\\radice.jpg");  // no path lists the root of the current drive

  ClickNode("C:\\Foto");
  window.tvwdirtree.UserCollapses(*window.tvwdirtree.Find("C:"));
  EXPECT_EQ(window.lblPath.Caption(), "C:\r\n");
  EXPECT_EQ(window.List1.ListCount(), 2);  // the list waits for a click
}

}  // namespace

}  // namespace Morvane
