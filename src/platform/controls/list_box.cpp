#include "platform/controls/list_box.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace Morvane {

namespace {

bool ComesBefore(const std::string& a, const std::string& b) {
  return CompareIgnoringCase(a, b) < 0;
}

}  // namespace

void ListBox::RequireRow(int index) const {
  if (index >= 0 && index < ListCount()) return;
  throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex, "La riga richiesta non esiste nell'elenco.");
}

// Names mostly come in their order; then there is nothing to look for.
void ListBox::AddItem(const std::string& text) {
  const bool last = !Sorted || rows_.empty() || !ComesBefore(text, rows_.back());
  const auto place = last ? rows_.end() : std::upper_bound(rows_.begin(), rows_.end(), text, ComesBefore);
  if (place - rows_.begin() <= listIndex_) ++listIndex_;
  rows_.insert(place, text);
  OnViewChange(ViewChange::Content);
}

void ListBox::Clear() {
  rows_.clear();
  listIndex_ = -1;
  OnViewChange(ViewChange::Content);
}

void ListBox::RemoveItem(int index) {
  RequireRow(index);
  rows_.erase(rows_.begin() + index);
  if (index == listIndex_) listIndex_ = -1;
  if (index < listIndex_) --listIndex_;
  OnViewChange(ViewChange::Content);
}

void ListBox::SetList(int index, const std::string& text) {
  RequireRow(index);
  rows_[static_cast<std::size_t>(index)] = text;
  OnViewChange(ViewChange::Content);
}

const std::string& ListBox::List(int index) const {
  static const std::string kNone;
  if (index < 0 || index >= ListCount()) return kNone;
  return rows_[static_cast<std::size_t>(index)];
}

void ListBox::SetListIndex(int index) {
  if (index != -1) RequireRow(index);
  if (index == listIndex_) return;
  listIndex_ = index;
  OnViewChange(ViewChange::Selection);
  Click();
}

void ListBox::UserSelects(int index) {
  if (index < 0 || index >= ListCount()) return;
  if (index != listIndex_) return SetListIndex(index);
  Click();
}

}  // namespace Morvane
