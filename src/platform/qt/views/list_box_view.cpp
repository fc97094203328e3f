#include "platform/qt/views/list_box_view.h"

#include <QContextMenuEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace Morvane {
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
    : ControlView(model, context), model_(model), rows_(model), list_(&parent) {
  list_.setModel(&rows_);
  list_.setUniformItemSizes(true);
  list_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  refresh_.setSingleShot(true);
  refresh_.setInterval(0);
  connect(&refresh_, &QTimer::timeout, this, [this] { MirrorSelection(); });
  connect(list_.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { FollowUser(); });
  Watch(*list_.viewport());
}

void ListBoxView::MirrorContent() {
  stale_ = true;
  refresh_.start();
}

void ListBoxView::Refresh() {
  stale_ = false;
  const int scrolled = list_.verticalScrollBar()->value();
  rows_.Refresh();
  list_.doItemsLayout();
  list_.verticalScrollBar()->setValue(scrolled);
}

// The toolkit is in the middle of the user's selection while its handler runs: rows change after that.
void ListBoxView::MirrorSelection() {
  if (userSelects_) return;
  const QScopedValueRollback<bool> following(following_, true);
  if (stale_) Refresh();
  const QModelIndex selected = rows_.index(model_.ListIndex());
  if (selected.isValid()) {
    list_.setCurrentIndex(selected);
  } else {
    list_.selectionModel()->clear();
  }
}

// The selection, not the current row: a list that takes the focus makes its first row current, but selects
// none.
void ListBoxView::FollowUser() {
  const QModelIndexList selected = list_.selectionModel()->selectedIndexes();
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
  const QModelIndex row = list_.indexAt(event.position().toPoint());
  if (!row.isValid() || row.row() != model_.ListIndex()) return false;
  Feed([&] {
    event.type() == QEvent::MouseButtonDblClick ? model_.PerformDblClick() : model_.UserSelects(row.row());
  });
  return true;
}

bool ListBoxView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ContextMenu) return ControlView::eventFilter(watched, event);
  if (static_cast<const QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
    Feed([this] { model_.PerformMouseDown(MouseButton::Right, 0, 0, 0); });
  }
  return true;
}

}  // namespace Morvane
