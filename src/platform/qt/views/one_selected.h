#pragma once

#include <QItemSelectionModel>

namespace Morvane {

// A list or tree whose one highlighted row stays highlighted: the toolkit takes the highlight away at Ctrl
// and a click, or Ctrl and Space, while the program goes on with that row.
template <typename View>
class OneSelected : public View {
 public:
  using View::View;

 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override {
    const auto command = View::selectionCommand(index, event);
    return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate : command;
  }
};

}  // namespace Morvane
