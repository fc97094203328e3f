#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <QTreeView>
#include <string>
#include <vector>

#include "core/app_state.h"
#include "tests/hand/hand.h"
#include "windows/image_picker/frm_about.h"

namespace Morvane {

// The picker on a disk C: with the desktop in C:\\home\\u\\Scrivania; other drives as a test mounts them.
class PickerTest : public ::testing::Test {
 protected:
  using Texts = std::vector<std::string>;

  PickerTest() { state.AppPath = "C:\\Morvane\\"; }

  void Mount(const std::string& device, const std::string& fileSystem, const std::string& folder) {
    mounts_ += "1 1 " + std::to_string(++mountCount_) + ":0 / " + folder + " rw - " + fileSystem + " " +
               device + " rw\n";
    machine.MakeFolder("C:" + folder);
    machine.WriteFile("C:\\mountinfo", mounts_);
  }

  void Open() { hand.Show(window.form); }

  static QTreeView& Tree(const frmAbout& picker) { return Hand::See<QTreeView>(picker.tvwdirtree); }

  // The first node of this text, by the rows from the top.
  static QModelIndex Node(const frmAbout& picker, const std::string& text) {
    const QAbstractItemModel& nodes = *Tree(picker).model();
    const auto found = nodes.match(nodes.index(0, 0), Qt::DisplayRole, QString::fromStdString(text), 1,
                                   Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
    if (found.empty()) throw std::logic_error("no node " + text);
    return found.front();
  }
  QModelIndex Node(const std::string& text) const { return Node(window, text); }

  Texts Below(const std::string& text) const {
    const QModelIndex node = Node(text);
    Texts texts;
    for (int row = 0; row < node.model()->rowCount(node); ++row) {
      texts.push_back(node.model()->index(row, 0, node).data().toString().toStdString());
    }
    return texts;
  }

  static void ClickNode(const frmAbout& picker, const std::string& text) { ClickAt(picker, text, 5); }
  void ClickNode(const std::string& text) const { ClickNode(window, text); }
  // The triangle before the node, which opens and closes it.
  void Toggle(const std::string& text) const { ClickAt(window, text, -10); }

  static Texts Rows(const frmAbout& picker) {
    const QAbstractItemModel& rows = *Hand::See<QAbstractItemView>(picker.List1).model();
    Texts texts;
    for (int i = 0; i < rows.rowCount(); ++i)
      texts.push_back(rows.index(i, 0).data().toString().toStdString());
    return texts;
  }
  Texts Rows() const { return Rows(window); }

  static void ClickRow(const frmAbout& picker, int row, Qt::MouseButton button = Qt::LeftButton) {
    auto& list = Hand::See<QAbstractItemView>(picker.List1);
    const QModelIndex index = list.model()->index(row, 0);
    list.scrollTo(index);
    QTest::mouseClick(list.viewport(), button, {}, list.visualRect(index).center());
    Hand::Settle();
  }

  TestMachine machine;
  AppState state;
  int contentsLoads = 0;
  Hand hand{machine};
  frmAbout window{state, hand.platform, [this] { ++contentsLoads; }};

 private:
  static void ClickAt(const frmAbout& picker, const std::string& text, int x) {
    QTreeView& tree = Tree(picker);
    const QModelIndex node = Node(picker, text);
    tree.scrollTo(node);
    const QRect row = tree.visualRect(node);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {row.left() + x, row.center().y()});
    Hand::Settle();
  }

  std::string mounts_;
  int mountCount_ = 0;
};

}  // namespace Morvane
