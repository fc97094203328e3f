#pragma once

#include <string>
#include <vector>

#include "platform/controls/control.h"

namespace Morvane {

// Rows of text with one selection. Assigning ListIndex another value fires Click before the assignment
// returns. Sorted keeps rows alphabetical without regard to case as they are added; writing a row in place
// does not move it; removing the selected row leaves none selected.
class ListBox : public Control {
 public:
  using Control::Control;

  bool Sorted = false;
  void AddItem(const std::string& text);
  void Clear();
  // RuntimeError InvalidPropertyArrayIndex outside 0 to ListCount - 1.
  void RemoveItem(int index);
  void SetList(int index, const std::string& text);

  int ListCount() const { return static_cast<int>(rows_.size()); }
  // The row, or an empty text for an index outside the list.
  const std::string& List(int index) const;
  // The selected row's text, empty when none is selected.
  const std::string& Text() const { return List(listIndex_); }

  // -1 when nothing is selected.
  int ListIndex() const { return listIndex_; }
  // RuntimeError InvalidPropertyArrayIndex outside -1 to ListCount - 1.
  void SetListIndex(int index);

  // Fires Click for the selected row, too.
  void UserSelects(int index);

 private:
  void RequireRow(int index) const;

  std::vector<std::string> rows_;
  int listIndex_ = -1;
};

}  // namespace Morvane
