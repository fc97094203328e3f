#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/app_state.h"
#include "platform/files/local_file_system.h"
#include "tests/support/test_machine.h"
#include "windows/image_picker/frm_about.h"

namespace Morvane {

// A user who does something after each message.
class ActingWindows : public ScriptedWindows {
 public:
  std::function<void()> AfterBox;

  MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string& title) override {
    const MsgBoxAnswer answer = ScriptedWindows::MsgBox(text, buttons, title);
    if (AfterBox) AfterBox();
    return answer;
  }
};

// A made-up machine: a disk C: with the desktop in C:\home\u\Scrivania; other drives as a test mounts them.
class PickerTest : public ::testing::Test {
 protected:
  PickerTest() {
    machine.MakeFolder("C:\\home\\u\\Scrivania");
    state.AppPath = "C:\\Morvane\\";
  }

  void Mount(const std::string& device, const std::string& fileSystem, const std::string& folder) {
    mounts_ += "1 1 " + std::to_string(++mountCount_) + ":0 / " + folder + " rw - " + fileSystem + " " +
               device + " rw\n";
    machine.MakeFolder("C:" + folder);
    machine.WriteFile("C:\\mountinfo", mounts_);
  }

  std::vector<std::string> TextsBelow(const std::string& key) {
    std::vector<std::string> texts;
    for (const TreeNode* node : window.tvwdirtree.Find(key)->Children()) texts.push_back(node->Text());
    return texts;
  }

  void ClickNode(const std::string& key) { window.tvwdirtree.UserClicks(*window.tvwdirtree.Find(key)); }

  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (int i = 0; i < window.List1.ListCount(); ++i) rows.push_back(window.List1.List(i));
    return rows;
  }

  TestMachine machine;
  LocalFileSystem files{machine.Root.Path(), MountTable(machine.Root.Path() + "/mountinfo", ""),
                        machine.Root.Path() + "/home/u/Scrivania"};
  TextPictures pictures{files};
  ActingWindows windows;
  Platform platform{windows,
                    machine.TheScreen,
                    files,
                    pictures,
                    machine.Metrics,
                    machine.Fonts,
                    machine.ThePrinter,
                    machine.Launches,
                    machine.Http,
                    AppInfo{.path = "C:\\Morvane"}};
  AppState state;
  int contentsLoads = 0;
  frmAbout window{state, platform, [this] { ++contentsLoads; }};

 private:
  std::string mounts_;
  int mountCount_ = 0;
};

}  // namespace Morvane
