#include "platform/qt/views/control_views.h"

#include <QContextMenuEvent>
#include <QListView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStringListModel>
#include <QStyledItemDelegate>
#include <QTimer>

#include "platform/controls/list_box.h"
#include "platform/qt/views/one_selected.h"

namespace Morvane {
namespace {

// A row as wide as the list. Of a longer name the middle goes, since names are told apart by their ends.
class Row : public QStyledItemDelegate {
 public:
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return {0, QStyledItemDelegate::sizeHint(option, index).height()};
  }
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

  QStringListModel rows_;
  Row row_;
  QTimer refresh_;  // thousands of added rows are one change to the widget
  bool stale_ = false;
  bool userSelects_ = false;
};

ListBoxView::ListBoxView(ListBox& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context) {
  widget_.setModel(&rows_);
  widget_.setUniformItemSizes(true);
  widget_.setTextElideMode(Qt::ElideMiddle);
  widget_.setItemDelegate(&row_);
  widget_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  refresh_.setSingleShot(true);
  refresh_.setInterval(0);
  connect(&refresh_, &QTimer::timeout, this, [this] { Mirror(ViewChange::Selection); });
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
  QStringList rows;
  for (int row = 0; row < model_.ListCount(); ++row) rows << QString::fromStdString(model_.List(row));
  rows_.setStringList(rows);
  widget_.doItemsLayout();
  widget_.verticalScrollBar()->setValue(scrolled);
}

// The toolkit is in the middle of the user's selection while its handler runs: rows change after that.
void ListBoxView::MirrorSelection() {
  if (userSelects_) return;
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
  if (selected.isEmpty() || selected.front().row() == model_.ListIndex()) return;
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
    event.type() == QEvent::MouseButtonDblClick ? model_.DblClick() : model_.UserSelects(row.row());
  });
  return true;
}

bool ListBoxView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ContextMenu) return ControlView::eventFilter(watched, event);
  if (static_cast<const QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
    Feed([this] { model_.MouseDown(MouseButton::Right, 0, 0); });
  }
  return true;
}

}  // namespace

const ViewMaker kMakeListBoxView = MakeFor<ListBox, ListBoxView>;

}  // namespace Morvane
