#include "platform/qt/views/node_tree_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>

#include "platform/qt/pictures/artwork.h"

namespace Morvane {
namespace {

constexpr int kNodeIcon = 16;
constexpr int kIndentation = 18;

}  // namespace

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
    : ControlView(model, context), model_(model), nodes_(model), tree_(&parent) {
  tree_.setModel(&nodes_);
  tree_.setHeaderHidden(true);
  tree_.setUniformRowHeights(true);
  tree_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  tree_.setIconSize({kNodeIcon, kNodeIcon});
  tree_.setIndentation(kIndentation);
  tree_.header()->setStretchLastSection(false);
  tree_.header()->setResizeContentsPrecision(0);
  tree_.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  refresh_.setSingleShot(true);
  refresh_.setInterval(0);
  connect(&refresh_, &QTimer::timeout, this, [this] { MirrorSelection(); });
  connect(&tree_, &QTreeView::expanded, this, [this](const QModelIndex& at) { FollowExpansion(at, true); });
  connect(&tree_, &QTreeView::collapsed, this, [this](const QModelIndex& at) { FollowExpansion(at, false); });
  connect(&tree_, &QTreeView::clicked, this,
          [this](const QModelIndex& at) { Feed([&] { model_.UserClicks(*TreeNodes::NodeAt(at)); }); });
  connect(tree_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { FollowSelection(); });
  Watch(*tree_.viewport());
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
  const QScopedValueRollback<bool> following(following_, true);
  if (stale_ || nodesShown_ != model_.NodeCount()) Refresh();
  MirrorOpenNodes(model_.Roots());
  const QModelIndex selected = nodes_.IndexOf(model_.Selected());
  if (selected != tree_.currentIndex() || !tree_.selectionModel()->isSelected(selected))
    tree_.setCurrentIndex(selected);
  tree_.viewport()->update();
}

void NodeTreeView::MirrorOpenNodes(const std::vector<TreeNode*>& nodes) {
  for (const TreeNode* node : nodes) {
    if (node->Expanded() != open_.contains(node)) {
      node->Expanded() ? static_cast<void>(open_.insert(node)) : static_cast<void>(open_.erase(node));
      tree_.setExpanded(nodes_.IndexOf(node), node->Expanded());
    }
    if (node->Expanded()) MirrorOpenNodes(node->Children());
  }
}

void NodeTreeView::FollowExpansion(const QModelIndex& index, bool open) {
  if (following_) return;
  TreeNode* const node = TreeNodes::NodeAt(index);
  open ? static_cast<void>(open_.insert(node)) : static_cast<void>(open_.erase(node));
  Feed([&] { open ? model_.UserExpands(*node) : model_.UserCollapses(*node); });
}

// The keyboard moves the selection; of the mouse only a whole click counts.
void NodeTreeView::FollowSelection() {
  const QModelIndexList selected = tree_.selectionModel()->selectedIndexes();
  if (following_ || mouseDown_ || selected.isEmpty()) return;
  Feed([&] { model_.UserClicks(*TreeNodes::NodeAt(selected.front())); });
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
    tree_.expand(tree_.currentIndex());
    return true;
  }
  const bool taken = ControlView::eventFilter(watched, event);
  return taken || (event->type() == QEvent::MouseMove && mouseDown_);
}

bool NodeTreeView::MouseReleased(QWidget&, const QMouseEvent& event) {
  mouseDown_ = false;
  // A press that is let go elsewhere is no click: the selection goes back to where it was.
  if (tree_.indexAt(event.position().toPoint()) != tree_.currentIndex()) MirrorSelection();
  return false;
}

}  // namespace Morvane
