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

void ListBox::SortPending() const {
  if (!sorted_ || sortedRows_ == rows_.size()) return;
  const auto firstNew = rows_.begin() + static_cast<std::ptrdiff_t>(sortedRows_);
  std::stable_sort(firstNew, rows_.end(), ComesBefore);
  std::inplace_merge(rows_.begin(), firstNew, rows_.end(), ComesBefore);
  sortedRows_ = rows_.size();
}

void ListBox::RequireRow(int index) const {
  if (index >= 0 && index < ListCount()) return;
  throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex, "La riga richiesta non esiste nell'elenco.");
}

void ListBox::AddItem(const std::string& text) {
  if (sorted_ && listIndex_ >= 0) {
    SortPending();
    const auto place = std::upper_bound(rows_.begin(), rows_.end(), text, ComesBefore);
    if (place - rows_.begin() <= listIndex_) ++listIndex_;
    rows_.insert(place, text);
    sortedRows_ = rows_.size();
  } else {
    rows_.push_back(text);
  }
  Notify(ViewChange::Content);
}

void ListBox::Clear() {
  rows_.clear();
  sortedRows_ = 0;
  listIndex_ = -1;
  Notify(ViewChange::Content);
}

void ListBox::RemoveItem(int index) {
  RequireRow(index);
  SortPending();
  rows_.erase(rows_.begin() + index);
  sortedRows_ = rows_.size();
  if (index == listIndex_) listIndex_ = -1;
  if (index < listIndex_) --listIndex_;
  Notify(ViewChange::Content);
}

void ListBox::SetList(int index, const std::string& text) {
  RequireRow(index);
  SortPending();
  rows_[static_cast<std::size_t>(index)] = text;
  Notify(ViewChange::Content);
}

const std::string& ListBox::List(int index) const {
  static const std::string kNone;
  if (index < 0 || index >= ListCount()) return kNone;
  SortPending();
  return rows_[static_cast<std::size_t>(index)];
}

void ListBox::SetListIndex(int index) {
  if (index != -1) RequireRow(index);
  SortPending();
  if (index == listIndex_) return;
  listIndex_ = index;
  Notify(ViewChange::Selection);
  if (Click) Click();
}

void ListBox::UserSelects(int index) {
  if (index < 0 || index >= ListCount()) return;
  if (index != listIndex_) return SetListIndex(index);
  if (Click) Click();
}

void ListBox::PerformDblClick() {
  if (DblClick) DblClick();
}

}  // namespace Morvane
