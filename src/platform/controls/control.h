#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/color.h"
#include "platform/font.h"

namespace Morvane {

class Container;
class Form;

// The keys that reach Control::KeyDown, by the numbers that handlers compare with.
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyEscape = 27;

enum class MouseButton { Left = 1, Right = 2, Middle = 4 };

// What of a control has changed, so that its view mirrors no more than that.
enum class ViewChange { Geometry, Appearance, Content, Selection, Focus };

// One line of a window's control table. Measures are twips, relative to the control's container.
struct ControlRow {
  std::string_view name;
  std::string_view caption = {};
  std::string_view toolTip = {};
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  std::string_view spokenName = {};  // for screen readers, where neither caption nor tool-tip serves
};

// A control of a window: it holds its state and fires its events; a view of the back-end mirrors it and feeds
// the user's actions back through the same setters. What has no setter is chosen before the window is shown.
class Control {
 public:
  Control(Container& parent, std::string name);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  std::function<void(ViewChange)> OnViewChange = [](ViewChange) {};

  std::function<void()> Click = [] {};
  std::function<void()> DblClick = [] {};
  std::function<void()> LostFocus = [] {};
  // Enter and Esc, while the control has the focus. With a handler the window has taken the key, which then
  // presses no default or cancel button.
  std::function<void(int keyCode)> KeyDown;
  // Coordinates are twips from the control's corner; a PictureBox gives them in its surface's scale.
  std::function<void(MouseButton button, double x, double y)> MouseDown = [](MouseButton, double, double) {};
  std::function<void(double x, double y)> MouseMove = [](double, double) {};

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  const std::string& ToolTipText() const { return toolTip_; }
  const std::string& SpokenName() const { return spokenName_; }
  double Left() const { return left_; }
  double Top() const { return top_; }
  double Width() const { return width_; }
  double Height() const { return height_; }
  bool Visible() const { return visible_; }
  const Font& GetFont() const { return font_; }
  Color ForeColor() const { return foreColor_; }
  const std::string& ImageKey() const { return imageKey_; }

  void SetCaption(const std::string& caption) { Assign(caption_, caption, ViewChange::Appearance); }
  void SetToolTipText(const std::string& text) { Assign(toolTip_, text, ViewChange::Appearance); }
  void SetLeft(double left) { Assign(left_, left, ViewChange::Geometry); }
  void SetTop(double top) { Assign(top_, top, ViewChange::Geometry); }
  // RuntimeError InvalidPropertyValue for a negative size.
  void SetWidth(double width) { SetSide(width_, width); }
  void SetHeight(double height) { SetSide(height_, height); }
  void SetVisible(bool on) { Assign(visible_, on, ViewChange::Appearance); }
  void SetFont(const Font& font) { Assign(font_, font, ViewChange::Appearance); }
  void SetForeColor(Color color) { Assign(foreColor_, color, ViewChange::Appearance); }
  // Names a drawing of the program's own artwork (data/images), without extension; empty for none.
  void SetImageKey(const std::string& key) { Assign(imageKey_, key, ViewChange::Appearance); }
  // The pointer over it, of a picture or label to click.
  bool HandPointer = false;

  // Moves the keyboard here; LostFocus of the control that had it comes first.
  void SetFocus();

  Container& Parent() const { return parent_; }
  void ApplyRow(const ControlRow& row);

  // What the user does, fed in by the view.
  virtual void UserClicks() { Click(); }

 protected:
  template <typename T>
  void Assign(T& field, const T& value, ViewChange change) {
    if (field == value) return;
    field = value;
    OnViewChange(change);
  }
  virtual void Resized() {}

 private:
  void SetSide(double& side, double size);

  Container& parent_;
  std::string name_;
  std::string caption_;
  std::string toolTip_;
  std::string spokenName_;
  double left_ = 0;
  double top_ = 0;
  double width_ = 0;
  double height_ = 0;
  bool visible_ = true;
  Font font_{.name = "Verdana", .size = 8};
  Color foreColor_;
  std::string imageKey_;
};

// What holds controls: a form, a frame, a picture box. The order of its children is the tab order.
class Container {
 public:
  virtual ~Container() = default;

  virtual Form& OwnerForm() = 0;
  const std::vector<Control*>& Children() const { return children_; }

  // Called once by each child's constructor.
  void Adopt(Control& child) { children_.push_back(&child); }
  void OrderChildren(const std::function<int(const Control&)>& rank);

 private:
  std::vector<Control*> children_;
};

}  // namespace Morvane
