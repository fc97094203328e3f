#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/menu.h"
#include "platform/controls/screen.h"

namespace Morvane {

class Timer;

// One window as designed: measures of its client area in twips. `frameHeight` is what the window's Height
// counts beyond the client area (title bar, and menu bar where there is one), the same on every desktop, so
// that no layout depends on one. The texts must outlive the window.
struct FormRow {
  std::string_view name;
  std::string_view caption;
  double clientWidth = 0;
  double clientHeight = 0;
  double frameHeight = 375;
  bool resizable = false;
  std::string_view iconKey = {};        // artwork of the title bar's icon; the program's own without one
  std::string_view backgroundKey = {};  // artwork behind the controls
};

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

// A window: Load once per life, Resize and Activate at its first show, Unload at its end. Hiding keeps the
// controls; after unloading the window object is thrown away and made anew (see WindowSlot).
class Form : public Container {
 public:
  explicit Form(const FormRow& design)
      : Design(design), width_(design.clientWidth), height_(design.clientHeight + design.frameHeight) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const FormRow Design;

  std::function<void(ViewChange)> OnViewChange = [](ViewChange) {};

  std::function<void()> Load = [] {};
  std::function<void()> Activate = [] {};
  std::function<void()> Resize = [] {};
  std::function<void()> Paint = [] {};
  std::function<void()> Unload = [] {};
  std::function<void(double x, double y)> MouseMove = [](double, double) {};

  Form& OwnerForm() override { return *this; }

  std::string Name() const { return std::string(Design.name); }
  // The window's own font; no control takes it over.
  const Font& GetFont() const { return font_; }
  void SetFont(const Font& font) { font_ = font; }

  // Twips. Setting another size fires Resize once the window has been shown.
  double Left() const { return left_; }
  double Top() const { return top_; }
  double Width() const { return width_; }
  double Height() const { return height_; }
  double ClientWidth() const { return width_; }
  double ClientHeight() const { return height_ - Design.frameHeight; }
  void Move(double left, double top);
  void CentreOn(const Screen& screen);  // its frame counted in
  void SetSize(double width, double height);
  WindowState State() const { return state_; }

  std::vector<MenuItem> MenuBar;
  // The entry of this name anywhere in the menu bar; std::logic_error when there is none.
  MenuItem& Menu(std::string_view name);
  void SetMenuEnabled(std::string_view name, bool on);

  // Gives each control its line of the table and the tab order of the table. Every control has one line and
  // every line one control; std::logic_error otherwise.
  void LayOut(std::span<const ControlRow> table);
  // All controls, containers before what they hold.
  std::vector<Control*> AllControls() const;
  std::vector<Timer*> Timers;

  bool Loaded() const { return life_ == Life::Loaded; }
  bool Unloaded() const { return life_ == Life::Unloaded; }
  bool Visible() const { return visible_; }
  void EnsureLoaded();
  void Hide();
  void UnloadForm();

  // For the window system and the view, which the form owns: made when it is first shown, gone with it.
  std::shared_ptr<void> View;
  void BeginShow();
  void UserMoves(double left, double top);
  void UserResizes(double clientWidth, double clientHeight);
  void UserChangesState(WindowState state);
  void ActivateIfVisible();
  void MoveFocus(Control* control);
  Control* FocusedControl() const { return focused_; }

 private:
  enum class Life { New, Loaded, Unloaded };

  void FireResize();

  Font font_{.name = "Tahoma", .size = 8};
  double left_ = 0;
  double top_ = 0;
  double width_;
  double height_;
  WindowState state_ = WindowState::Normal;
  Life life_ = Life::New;
  bool visible_ = false;
  bool shownBefore_ = false;
  Control* focused_ = nullptr;
};

}  // namespace Morvane
