#include "platform/qt/views/control_views.h"

#include <QAbstractListModel>
#include <QContextMenuEvent>
#include <QListView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimer>

#include "platform/controls/list_box.h"
#include "platform/qt/views/one_selected.h"

namespace Morvane {
namespace {

// The rows of a list box, read where they are. The count is that of the last Refresh, so that thousands of
// added rows are one change to the view.
class ListRows : public QAbstractListModel {
 public:
  explicit ListRows(const ListBox& list) : list_(list) {}

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count_; }
  QVariant data(const QModelIndex& index, int role) const override;
  void Refresh();

 private:
  const ListBox& list_;
  int count_ = 0;
};

class ListBoxView : public WidgetView<ListBox, OneSelected<QListView>> {
 public:
  ListBoxView(ListBox& model, QWidget& parent, const ViewContext& context);

 protected:
  void MirrorContent() override;
  void MirrorSelection() override;
  bool MousePressed(QWidget& part, const QMouseEvent& event) override;
  bool MouseReleased(QWidget&, const QMouseEvent&) override { return false; }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Refresh();
  void FollowUser();

  ListRows rows_;
  QTimer refresh_;
  bool stale_ = false;
  bool following_ = false;
  bool userSelects_ = false;
};

QVariant ListRows::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole) return {};
  return QString::fromStdString(list_.List(index.row()));
}

void ListRows::Refresh() {
  beginResetModel();
  count_ = list_.ListCount();
  endResetModel();
}

ListBoxView::ListBoxView(ListBox& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context), rows_(model) {
  widget_.setModel(&rows_);
  widget_.setUniformItemSizes(true);
  widget_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  refresh_.setSingleShot(true);
  refresh_.setInterval(0);
  connect(&refresh_, &QTimer::timeout, this, [this] { MirrorSelection(); });
  connect(widget_.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { FollowUser(); });
  Watch(*widget_.viewport());
}

void ListBoxView::MirrorContent() {
  stale_ = true;
  refresh_.start();
}

void ListBoxView::Refresh() {
  stale_ = false;
  const int scrolled = widget_.verticalScrollBar()->value();
  rows_.Refresh();
  widget_.doItemsLayout();
  widget_.verticalScrollBar()->setValue(scrolled);
}

// The toolkit is in the middle of the user's selection while its handler runs: rows change after that.
void ListBoxView::MirrorSelection() {
  if (userSelects_) return;
  const QScopedValueRollback<bool> following(following_, true);
  if (stale_) Refresh();
  const QModelIndex selected = rows_.index(model_.ListIndex());
  if (selected.isValid()) {
    widget_.setCurrentIndex(selected);
  } else {
    widget_.selectionModel()->clear();
  }
}

// The selection, not the current row: a list that takes the focus makes its first row current, but selects
// none.
void ListBoxView::FollowUser() {
  const QModelIndexList selected = widget_.selectionModel()->selectedIndexes();
  if (following_ || selected.isEmpty() || selected.front().row() == model_.ListIndex()) return;
  {
    const QScopedValueRollback<bool> selecting(userSelects_, true);
    Feed([&] { model_.UserSelects(selected.front().row()); });
  }
  refresh_.start();
}

// Only the left button selects. A row that is selected already is the list's to tell: the toolkit sees no
// change.
bool ListBoxView::MousePressed(QWidget& part, const QMouseEvent& event) {
  ControlView::MousePressed(part, event);
  if (event.button() != Qt::LeftButton) return true;
  const QModelIndex row = widget_.indexAt(event.position().toPoint());
  if (!row.isValid() || row.row() != model_.ListIndex()) return false;
  Feed([&] {
    event.type() == QEvent::MouseButtonDblClick ? model_.PerformDblClick() : model_.UserSelects(row.row());
  });
  return true;
}

bool ListBoxView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ContextMenu) return ControlView::eventFilter(watched, event);
  if (static_cast<const QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
    Feed([this] { model_.PerformMouseDown(MouseButton::Right, 0, 0); });
  }
  return true;
}

}  // namespace

std::unique_ptr<ControlView> MakeListBoxView(Control& model, QWidget& parent, const ViewContext& context) {
  return MakeFor<ListBox, ListBoxView>(model, parent, context);
}

}  // namespace Morvane
