#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <QTimer>

#include "platform/controls/list_box.h"
#include "platform/qt/views/control_view.h"
#include "platform/qt/views/one_selected.h"

namespace Morvane {

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

class ListBoxView : public ControlView {
 public:
  ListBoxView(ListBox& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &list_; }

 protected:
  void MirrorContent() override;
  void MirrorSelection() override;
  bool MousePressed(QWidget& part, const QMouseEvent& event) override;
  bool MouseReleased(QWidget&, const QMouseEvent&) override { return false; }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Refresh();
  void FollowUser();

  ListBox& model_;
  ListRows rows_;
  OneSelected<QListView> list_;
  QTimer refresh_;
  bool stale_ = false;
  bool following_ = false;
  bool userSelects_ = false;
};

}  // namespace Morvane
