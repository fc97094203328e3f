#pragma once

#include <QEvent>
#include <QItemSelectionModel>

namespace Morvane {

// A list or tree whose one highlighted row stays highlighted: the toolkit takes the highlight away at Ctrl
// and a click, or Ctrl and Space, while the program goes on with that row. Where the mouse button is let go
// selects nothing: the press did, or it was no click.
template <typename View>
class OneSelected : public View {
 public:
  using View::View;

 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override {
    if (event != nullptr && event->type() == QEvent::MouseButtonRelease) return QItemSelectionModel::NoUpdate;
    const auto command = View::selectionCommand(index, event);
    return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate : command;
  }
};

}  // namespace Morvane
