#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QTest>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/app_state.h"
#include "tests/hand/hand.h"
#include "windows/image_picker/frm_about.h"

namespace Morvane {

// The picker of a machine with the desktop in C:\home\u\Scrivania; other drives as a test mounts them.
class PickerTest : public ::testing::Test {
 protected:
  using Texts = std::vector<std::string>;

  PickerTest() {
    state.AppPath = "C:\\Morvane\\";
    state.FileFolder = "c:\\";
  }

  void Mount(const std::string& device, const std::string& fileSystem, const std::string& folder) {
    mounts_ += "1 1 " + std::to_string(++mountCount_) + ":0 / " + folder + " rw - " + fileSystem + " " +
               device + " rw\n";
    machine.MakeFolder("C:" + folder);
    machine.WriteFile("C:\\mountinfo", mounts_);
  }
  // C:\Foto
  void WritePhotos(const Texts& names) {
    for (const std::string& name : names) machine.WritePicture("C:\\Foto\\" + name, 1500, 1500);
  }

  // What an earlier window was closed with goes with it.
  void Open() {
    hand = std::make_unique<Hand>(machine);
    picker = std::make_unique<frmAbout>(state, hand->platform, [this] { ++contentsLoads; });
    hand->Show(picker->form);
  }

  QModelIndex Node(const std::string& text) const { return Hand::Row(picker->tvwdirtree, text); }
  Texts Below(const std::string& text) const { return Hand::Rows(picker->tvwdirtree, Node(text)); }
  void ClickNode(const std::string& text) const { Hand::ClickRow(picker->tvwdirtree, Node(text)); }
  void Toggle(const std::string& text) const { Hand::ClickRow(picker->tvwdirtree, Node(text), -10); }
  Texts Rows() const { return Hand::Rows(picker->List1); }
  void ClickRow(int row) const { Hand::ClickRow(picker->List1, row); }

  TestMachine machine;
  AppState state;
  int contentsLoads = 0;
  std::unique_ptr<frmAbout> picker;
  std::unique_ptr<Hand> hand;  // goes first, with its windows

 private:
  std::string mounts_;
  int mountCount_ = 0;
};

}  // namespace Morvane
