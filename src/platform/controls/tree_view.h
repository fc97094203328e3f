#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/control.h"

namespace Morvane {

class TreeView;

// A node of a tree, known by its key. Nodes live as long as their tree.
class TreeNode {
 public:
  const std::string& Key() const { return key_; }
  const std::string& Text() const { return text_; }
  // Artwork keys; the selected image is the plain one when it was not set.
  const std::string& Image() const { return image_; }
  const std::string& SelectedImage() const { return selectedImage_.empty() ? image_ : selectedImage_; }
  void SetSelectedImage(const std::string& key) { selectedImage_ = key; }
  TreeNode* Parent() const { return parent_; }
  const std::vector<TreeNode*>& Children() const { return children_; }
  bool Expanded() const { return expanded_; }

 private:
  friend class TreeView;

  std::string key_;
  std::string text_;
  std::string image_;
  std::string selectedImage_;
  TreeNode* parent_ = nullptr;
  std::vector<TreeNode*> children_;
  bool expanded_ = false;
  bool sorted_ = false;
};

// A tree of nodes. A click on a node gives NodeClick, then Click; opening or closing it Expand or Collapse.
class TreeView : public Control {
 public:
  using Control::Control;

  std::function<void(TreeNode&)> Expand = [](TreeNode&) {};
  std::function<void(TreeNode&)> Collapse = [](TreeNode&) {};
  std::function<void(TreeNode&)> NodeClick = [](TreeNode&) {};

  // Adds a node under a parent, or at the top for an empty parent key. RuntimeError KeyNotUnique for a key
  // that exists, InvalidPropertyArrayIndex for an unknown parent.
  TreeNode& Add(const std::string& parentKey, const std::string& key, const std::string& text,
                const std::string& image);
  // Nodes count from 1 in the order of adding; RuntimeError InvalidPropertyArrayIndex outside it.
  TreeNode& Node(int index) const;
  TreeNode* Find(const std::string& key) const;
  int NodeCount() const { return static_cast<int>(nodes_.size()); }
  const std::vector<TreeNode*>& Roots() const { return roots_; }
  TreeNode* Selected() const { return selected_; }

  // Keeps the children of a node alphabetical, those it has and those to come.
  void SetSorted(TreeNode& node, bool on);
  // Opens all nodes above it, each with its Expand event.
  void EnsureVisible(TreeNode& node);

  // While off, the view waits: adding thousands of nodes repaints once.
  void SetRedraw(bool on);
  bool Redraw() const { return redraw_; }

  void UserSelects(TreeNode& node);
  void UserExpands(TreeNode& node);
  void UserCollapses(TreeNode& node);

 private:
  void PlaceChild(TreeNode& parent, TreeNode& child);

  std::vector<std::unique_ptr<TreeNode>> nodes_;
  std::map<std::string, TreeNode*> byKey_;
  std::vector<TreeNode*> roots_;
  TreeNode* selected_ = nullptr;
  bool redraw_ = true;
};

}  // namespace Morvane
