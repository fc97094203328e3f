#include "platform/qt/views/control_views.h"

#include <QAbstractItemModel>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "platform/controls/tree_view.h"
#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/one_selected.h"

namespace Morvane {
namespace {

constexpr int kNodeIcon = 16;
constexpr int kIndentation = 18;

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

class NodeTreeView : public WidgetView<TreeView, OneSelected<QTreeView>> {
 public:
  NodeTreeView(TreeView& model, QWidget& parent, const ViewContext& context);

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

  TreeNodes nodes_;
  QTimer refresh_;
  std::set<const TreeNode*> open_;
  int nodesShown_ = 0;
  bool stale_ = false;
  bool mouseDown_ = false;
};

const std::vector<TreeNode*>& TreeNodes::ChildrenOf(const QModelIndex& parent) const {
  return parent.isValid() ? NodeAt(parent)->Children() : tree_.Roots();
}

QModelIndex TreeNodes::IndexOf(const TreeNode* node) const {
  if (node == nullptr) return {};
  const std::vector<TreeNode*>& siblings = node->Parent() ? node->Parent()->Children() : tree_.Roots();
  const auto found = std::find(siblings.begin(), siblings.end(), node);
  if (found == siblings.end()) return {};
  return createIndex(static_cast<int>(found - siblings.begin()), 0, *found);
}

QModelIndex TreeNodes::index(int row, int column, const QModelIndex& parent) const {
  const std::vector<TreeNode*>& children = ChildrenOf(parent);
  if (column != 0 || row < 0 || row >= static_cast<int>(children.size())) return {};
  return createIndex(row, 0, children[static_cast<std::size_t>(row)]);
}

QModelIndex TreeNodes::parent(const QModelIndex& child) const {
  return child.isValid() ? IndexOf(NodeAt(child)->Parent()) : QModelIndex();
}

int TreeNodes::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(ChildrenOf(parent).size());
}

QVariant TreeNodes::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const TreeNode& node = *NodeAt(index);
  if (role == Qt::DisplayRole) return QString::fromStdString(node.Text());
  if (role != Qt::DecorationRole) return {};
  return Artwork(&node == tree_.Selected() ? node.SelectedImage() : node.Image());
}

const QIcon& TreeNodes::Artwork(const std::string& key) const {
  const auto [icon, added] = artwork_.try_emplace(key);
  if (added) icon->second = ArtworkIcon(key);
  return icon->second;
}

void TreeNodes::Refresh() {
  layoutAboutToBeChanged();
  const QModelIndexList kept = persistentIndexList();
  QModelIndexList moved;
  moved.reserve(kept.size());
  for (const QModelIndex& index : kept) moved.push_back(IndexOf(NodeAt(index)));
  changePersistentIndexList(kept, moved);
  layoutChanged();
}

NodeTreeView::NodeTreeView(TreeView& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context), nodes_(model) {
  widget_.setModel(&nodes_);
  widget_.setHeaderHidden(true);
  widget_.setUniformRowHeights(true);
  widget_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  widget_.setIconSize({kNodeIcon, kNodeIcon});
  widget_.setIndentation(kIndentation);
  widget_.header()->setStretchLastSection(false);
  widget_.header()->setResizeContentsPrecision(0);
  widget_.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  refresh_.setSingleShot(true);
  refresh_.setInterval(0);
  connect(&refresh_, &QTimer::timeout, this, [this] { Mirror(ViewChange::Selection); });
  connect(&widget_, &QTreeView::expanded, this, [this](const QModelIndex& at) { FollowExpansion(at, true); });
  connect(&widget_, &QTreeView::collapsed, this,
          [this](const QModelIndex& at) { FollowExpansion(at, false); });
  connect(&widget_, &QTreeView::clicked, this,
          [this](const QModelIndex& at) { Feed([&] { model_.UserSelects(*TreeNodes::NodeAt(at)); }); });
  connect(widget_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { FollowSelection(); });
  Watch(*widget_.viewport());
}

void NodeTreeView::MirrorContent() {
  if (!model_.Redraw()) return;
  stale_ = true;
  refresh_.start();
}

void NodeTreeView::Refresh() {
  stale_ = false;
  nodesShown_ = model_.NodeCount();
  nodes_.Refresh();
}

void NodeTreeView::MirrorSelection() {
  if (stale_ || nodesShown_ != model_.NodeCount()) Refresh();
  MirrorOpenNodes(model_.Roots());
  const QModelIndex selected = nodes_.IndexOf(model_.Selected());
  if (selected != widget_.currentIndex() || !widget_.selectionModel()->isSelected(selected))
    widget_.setCurrentIndex(selected);
  widget_.viewport()->update();
}

void NodeTreeView::MirrorOpenNodes(const std::vector<TreeNode*>& nodes) {
  for (const TreeNode* node : nodes) {
    if (node->Expanded() != open_.contains(node)) {
      node->Expanded() ? static_cast<void>(open_.insert(node)) : static_cast<void>(open_.erase(node));
      widget_.setExpanded(nodes_.IndexOf(node), node->Expanded());
    }
    if (node->Expanded()) MirrorOpenNodes(node->Children());
  }
}

void NodeTreeView::FollowExpansion(const QModelIndex& index, bool open) {
  TreeNode* const node = TreeNodes::NodeAt(index);
  open ? static_cast<void>(open_.insert(node)) : static_cast<void>(open_.erase(node));
  Feed([&] { open ? model_.UserExpands(*node) : model_.UserCollapses(*node); });
}

// The keyboard moves the selection; of the mouse only a whole click counts.
void NodeTreeView::FollowSelection() {
  const QModelIndexList selected = widget_.selectionModel()->selectedIndexes();
  if (mouseDown_ || selected.isEmpty()) return;
  Feed([&] { model_.UserSelects(*TreeNodes::NodeAt(selected.front())); });
}

bool NodeTreeView::MousePressed(QWidget& part, const QMouseEvent& event) {
  ControlView::MousePressed(part, event);
  if (event.button() != Qt::LeftButton) return true;
  mouseDown_ = true;
  return false;
}

// The asterisk opens its node alone: the toolkit would open all below it, a whole disk where links lead in
// circles. A mouse that slides with its button down selects nothing.
bool NodeTreeView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(*event).key() == Qt::Key_Asterisk) {
    widget_.expand(widget_.currentIndex());
    return true;
  }
  const bool taken = ControlView::eventFilter(watched, event);
  return taken || (event->type() == QEvent::MouseMove && mouseDown_);
}

bool NodeTreeView::MouseReleased(QWidget&, const QMouseEvent& event) {
  mouseDown_ = false;
  // A press that is let go elsewhere is no click: the selection goes back to where it was.
  if (widget_.indexAt(event.position().toPoint()) != widget_.currentIndex()) Mirror(ViewChange::Selection);
  return false;
}

}  // namespace

const ViewMaker kMakeNodeTreeView = MakeFor<TreeView, NodeTreeView>;

}  // namespace Morvane
