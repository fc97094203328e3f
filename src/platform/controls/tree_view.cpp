#include "platform/controls/tree_view.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace Morvane {

namespace {

bool ComesBefore(const TreeNode* a, const TreeNode* b) {
  return CompareIgnoringCase(a->Text(), b->Text()) < 0;
}

}  // namespace

TreeNode& TreeView::Add(const std::string& parentKey, const std::string& key, const std::string& text,
                        const std::string& image) {
  TreeNode* const parent = parentKey.empty() ? nullptr : Find(parentKey);
  if (parent == nullptr && !parentKey.empty()) {
    throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex, "La cartella superiore non è nell'albero.");
  }
  auto node = std::make_unique<TreeNode>();
  if (!byKey_.emplace(key, node.get()).second) {
    throw RuntimeError(ErrorNumber::KeyNotUnique, "La cartella è già nell'albero.");
  }
  node->key_ = key;
  node->text_ = text;
  node->image_ = image;
  node->parent_ = parent;
  nodes_.push_back(std::move(node));
  if (parent == nullptr) {
    roots_.push_back(nodes_.back().get());
  } else {
    PlaceChild(*parent, *nodes_.back());
  }
  if (redraw_) OnViewChange(ViewChange::Content);
  return *nodes_.back();
}

void TreeView::PlaceChild(TreeNode& parent, TreeNode& child) {
  auto& children = parent.children_;
  const bool atEnd = !parent.sorted_ || children.empty() || !ComesBefore(&child, children.back());
  const auto place =
      atEnd ? children.end() : std::upper_bound(children.begin(), children.end(), &child, ComesBefore);
  children.insert(place, &child);
}

TreeNode& TreeView::Node(int index) const {
  if (index < 1 || index > NodeCount()) {
    throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex, "Il nodo richiesto non è nell'albero.");
  }
  return *nodes_[static_cast<std::size_t>(index - 1)];
}

TreeNode* TreeView::Find(const std::string& key) const {
  const auto found = byKey_.find(key);
  return found == byKey_.end() ? nullptr : found->second;
}

void TreeView::SetSorted(TreeNode& node, bool on) {
  node.sorted_ = on;
  if (!on || std::is_sorted(node.children_.begin(), node.children_.end(), ComesBefore)) return;
  std::stable_sort(node.children_.begin(), node.children_.end(), ComesBefore);
  if (redraw_) OnViewChange(ViewChange::Content);
}

void TreeView::EnsureVisible(TreeNode& node) {
  if (node.parent_ == nullptr) return;
  EnsureVisible(*node.parent_);
  UserExpands(*node.parent_);
}

void TreeView::SetRedraw(bool on) {
  redraw_ = on;
  if (on) OnViewChange(ViewChange::Content);
}

void TreeView::UserSelects(TreeNode& node) {
  selected_ = &node;
  OnViewChange(ViewChange::Selection);
  NodeClick(node);
  Click();
}

void TreeView::UserExpands(TreeNode& node) {
  if (node.expanded_ || node.children_.empty()) return;
  node.expanded_ = true;
  OnViewChange(ViewChange::Selection);
  Expand(node);
}

void TreeView::UserCollapses(TreeNode& node) {
  if (!node.expanded_) return;
  node.expanded_ = false;
  OnViewChange(ViewChange::Selection);
  Collapse(node);
}

}  // namespace Morvane
