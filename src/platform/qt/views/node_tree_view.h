#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <QTimer>
#include <QTreeView>
#include <map>
#include <set>
#include <string>

#include "platform/controls/tree_view.h"
#include "platform/qt/views/control_view.h"
#include "platform/qt/views/one_selected.h"

namespace Morvane {

// The nodes of a tree, read where they are. Nodes are only ever added, so an index stays valid by its node.
class TreeNodes : public QAbstractItemModel {
 public:
  explicit TreeNodes(const TreeView& tree) : tree_(tree) {}

  QModelIndex IndexOf(const TreeNode* node) const;
  static TreeNode* NodeAt(const QModelIndex& index) {
    return static_cast<TreeNode*>(index.internalPointer());
  }

  QModelIndex index(int row, int column, const QModelIndex& parent) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex&) const override { return 1; }
  QVariant data(const QModelIndex& index, int role) const override;
  void Refresh();

 private:
  const std::vector<TreeNode*>& ChildrenOf(const QModelIndex& parent) const;
  const QIcon& Artwork(const std::string& key) const;

  const TreeView& tree_;
  mutable std::map<std::string, QIcon> artwork_;
};

class NodeTreeView : public ControlView {
 public:
  NodeTreeView(TreeView& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &tree_; }

 protected:
  void MirrorContent() override;
  void MirrorSelection() override;
  bool MousePressed(QWidget& part, const QMouseEvent& event) override;
  bool MouseReleased(QWidget& part, const QMouseEvent& event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Refresh();
  void MirrorOpenNodes(const std::vector<TreeNode*>& nodes);
  void FollowSelection();
  void FollowExpansion(const QModelIndex& index, bool open);

  TreeView& model_;
  TreeNodes nodes_;
  OneSelected<QTreeView> tree_;
  QTimer refresh_;
  std::set<const TreeNode*> open_;
  int nodesShown_ = 0;
  bool stale_ = false;
  bool following_ = false;
  bool mouseDown_ = false;
};

}  // namespace Morvane
