#include "platform/qt/views/control_views.h"

#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimer>
#include <QTreeWidget>
#include <algorithm>
#include <map>
#include <memory>
#include <string>

#include "platform/controls/tree_view.h"
#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/one_selected.h"

namespace Morvane {
namespace {

constexpr int kNodeIcon = 16;
constexpr int kIndentation = 18;

struct NodeItem : QTreeWidgetItem {
  explicit NodeItem(TreeNode& itsNode) : node(itsNode) {}

  TreeNode& node;
};

// The toolkit scrolls to a row up and down only. A name deep in the tree comes into sight too, as much of it
// as half the width holds.
class DeepTree : public OneSelected<QTreeWidget> {
 public:
  using OneSelected::OneSelected;

  void scrollTo(const QModelIndex& index, ScrollHint hint) override {
    OneSelected::scrollTo(index, hint);
    const int room = viewport()->width();
    const int left = visualRect(index).left();
    const int hidden = left + sizeHintForIndex(index).width() - room;
    QScrollBar& bar = *horizontalScrollBar();
    bar.setValue(bar.value() + std::clamp(hidden, 0, std::max(0, left - room / 2)));
  }
};

class NodeTreeView : public WidgetView<TreeView, DeepTree> {
 public:
  NodeTreeView(TreeView& model, QWidget& parent, const ViewContext& context);

 protected:
  void MirrorContent() override;
  void MirrorSelection() override;
  bool MousePressed(QWidget& part, const QMouseEvent& event) override;
  bool MouseReleased(QWidget& part, const QMouseEvent& event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MirrorNodes(QTreeWidgetItem& parent, const std::vector<TreeNode*>& nodes);
  NodeItem& MirrorNode(QTreeWidgetItem& parent, int row, TreeNode& node);
  const QIcon& Artwork(const std::string& key);
  void FollowSelection();

  QTimer refresh_;  // thousands of added nodes are one change to the widget
  std::map<const TreeNode*, NodeItem*> items_;
  std::map<std::string, QIcon> artwork_;
  NodeItem* selected_ = nullptr;
  bool mouseDown_ = false;
};

TreeNode& NodeOf(QTreeWidgetItem* item) {
  return static_cast<NodeItem*>(item)->node;
}

NodeTreeView::NodeTreeView(TreeView& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context) {
  widget_.setHeaderHidden(true);
  widget_.setUniformRowHeights(true);
  widget_.setIconSize({kNodeIcon, kNodeIcon});
  widget_.setIndentation(kIndentation);
  widget_.header()->setStretchLastSection(false);
  widget_.header()->setResizeContentsPrecision(0);
  widget_.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  refresh_.setSingleShot(true);
  refresh_.setInterval(0);
  connect(&refresh_, &QTimer::timeout, this, [this] { Mirror(ViewChange::Selection); });
  connect(&widget_, &QTreeWidget::itemExpanded, this,
          [this](QTreeWidgetItem* item) { Feed([&] { model_.UserExpands(NodeOf(item)); }); });
  connect(&widget_, &QTreeWidget::itemCollapsed, this,
          [this](QTreeWidgetItem* item) { Feed([&] { model_.UserCollapses(NodeOf(item)); }); });
  connect(&widget_, &QTreeWidget::itemClicked, this,
          [this](QTreeWidgetItem* item) { Feed([&] { model_.UserSelects(NodeOf(item)); }); });
  connect(&widget_, &QTreeWidget::itemSelectionChanged, this, [this] { FollowSelection(); });
  Watch(*widget_.viewport());
}

void NodeTreeView::MirrorContent() {
  if (model_.Redraw()) refresh_.start();
}

void NodeTreeView::MirrorSelection() {
  MirrorNodes(*widget_.invisibleRootItem(), model_.Roots());
  if (selected_ != nullptr) selected_->setIcon(0, Artwork(selected_->node.Image()));
  selected_ = model_.Selected() == nullptr ? nullptr : items_.at(model_.Selected());
  if (selected_ != nullptr) selected_->setIcon(0, Artwork(selected_->node.SelectedImage()));
  widget_.setCurrentItem(selected_);
}

void NodeTreeView::MirrorNodes(QTreeWidgetItem& parent, const std::vector<TreeNode*>& nodes) {
  int row = 0;
  for (TreeNode* const node : nodes) {
    NodeItem& item = MirrorNode(parent, row++, *node);
    MirrorNodes(item, node->Children());
    if (item.isExpanded() != node->Expanded()) item.setExpanded(node->Expanded());
  }
}

// The item of a node at its place, where it may be new or have been elsewhere.
NodeItem& NodeTreeView::MirrorNode(QTreeWidgetItem& parent, int row, TreeNode& node) {
  if (row < parent.childCount() && &NodeOf(parent.child(row)) == &node)
    return static_cast<NodeItem&>(*parent.child(row));
  NodeItem*& item = items_[&node];
  if (item != nullptr) {
    parent.removeChild(item);
  } else {
    item = std::make_unique<NodeItem>(node).release();  // the tree's from here
    item->setText(0, QString::fromStdString(node.Text()));
    item->setIcon(0, Artwork(node.Image()));
  }
  parent.insertChild(row, item);
  return *item;
}

const QIcon& NodeTreeView::Artwork(const std::string& key) {
  const auto [icon, added] = artwork_.try_emplace(key);
  if (added) icon->second = ArtworkIcon(key);
  return icon->second;
}

// The keyboard moves the selection; of the mouse only a whole click counts.
void NodeTreeView::FollowSelection() {
  const QList<QTreeWidgetItem*> selected = widget_.selectedItems();
  if (mouseDown_ || selected.isEmpty()) return;
  Feed([&] { model_.UserSelects(NodeOf(selected.front())); });
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
    widget_.expandItem(widget_.currentItem());
    return true;
  }
  const bool taken = ControlView::eventFilter(watched, event);
  return taken || (event->type() == QEvent::MouseMove && mouseDown_);
}

bool NodeTreeView::MouseReleased(QWidget&, const QMouseEvent& event) {
  mouseDown_ = false;
  // A press that is let go elsewhere is no click: the selection goes back to where it was.
  if (widget_.itemAt(event.position().toPoint()) != widget_.currentItem()) Mirror(ViewChange::Selection);
  return false;
}

}  // namespace

const ViewMaker kMakeNodeTreeView = MakeFor<TreeView, NodeTreeView>;

}  // namespace Morvane
