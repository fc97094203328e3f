#include "platform/controls/form.h"

#include <map>
#include <stdexcept>

namespace Morvane {

namespace {

MenuItem* FindMenu(std::vector<MenuItem>& items, std::string_view name) {
  for (MenuItem& item : items) {
    if (item.name == name) return &item;
    if (MenuItem* found = FindMenu(item.items, name)) return found;
  }
  return nullptr;
}

void Collect(const Container& container, std::vector<Control*>& into) {
  for (Control* child : container.Children()) {
    into.push_back(child);
    if (const auto* inner = dynamic_cast<const Container*>(child)) Collect(*inner, into);
  }
}

}  // namespace

void Form::Move(double left, double top) {
  left_ = left;
  top_ = top;
  OnViewChange(ViewChange::Geometry);
}

void Form::CentreOn(const Screen& screen) {
  const ScreenSize room = screen.Measure();
  Move((room.width - width_) / 2, (room.height - height_) / 2);
}

void Form::SetSize(double width, double height) {
  if (width == width_ && height == height_) return;
  width_ = width;
  height_ = height;
  OnViewChange(ViewChange::Geometry);
  FireResize();
}

MenuItem& Form::Menu(std::string_view name) {
  MenuItem* item = FindMenu(MenuBar, name);
  if (item == nullptr) throw std::logic_error("no menu entry " + std::string(name) + " in " + Name());
  return *item;
}

void Form::SetMenuEnabled(std::string_view name, bool on) {
  MenuItem& item = Menu(name);
  if (item.enabled == on) return;
  item.enabled = on;
  OnViewChange(ViewChange::Content);
}

void Form::LayOut(std::span<const ControlRow> table) {
  std::map<std::string_view, int> rank;
  for (const ControlRow& row : table) rank.emplace(row.name, static_cast<int>(rank.size()));
  const std::vector<Control*> controls = AllControls();
  if (controls.size() != table.size()) {
    throw std::logic_error("controls and table of " + Name() + " differ in number");
  }
  for (Control* control : controls) {
    const auto found = rank.find(control->Name());
    if (found == rank.end()) throw std::logic_error("no line for " + control->Name() + " in " + Name());
    control->ApplyRow(table[static_cast<std::size_t>(found->second)]);
  }
  const auto byTable = [&](const Control& control) { return rank.at(control.Name()); };
  OrderChildren(byTable);
  for (Control* control : controls) {
    if (auto* inner = dynamic_cast<Container*>(control)) inner->OrderChildren(byTable);
  }
}

std::vector<Control*> Form::AllControls() const {
  std::vector<Control*> all;
  Collect(*this, all);
  return all;
}

void Form::EnsureLoaded() {
  if (life_ != Life::New) return;
  life_ = Life::Loaded;
  Load();
}

void Form::Hide() {
  visible_ = false;
  OnViewChange(ViewChange::Appearance);
}

void Form::UnloadForm() {
  if (life_ != Life::Loaded) return;
  life_ = Life::Unloaded;
  Unload();
  Hide();
}

void Form::BeginShow() {
  EnsureLoaded();
  if (Unloaded()) return;
  visible_ = true;
  if (!shownBefore_) {
    shownBefore_ = true;
    FireResize();
  }
  ActivateIfVisible();
}

void Form::UserMoves(double left, double top) {
  left_ = left;
  top_ = top;
}

void Form::UserResizes(double clientWidth, double clientHeight) {
  if (clientWidth == ClientWidth() && clientHeight == ClientHeight()) return;
  width_ = clientWidth;
  height_ = clientHeight + Design.frameHeight;
  FireResize();
}

void Form::UserChangesState(WindowState state) {
  if (state_ == state) return;
  state_ = state;
  FireResize();
}

void Form::ActivateIfVisible() {
  if (visible_) Activate();
}

void Form::MoveFocus(Control* control) {
  if (focused_ == control) return;
  Control* const previous = focused_;
  focused_ = control;
  if (previous != nullptr) previous->LostFocus();
  if (control != nullptr) control->OnViewChange(ViewChange::Focus);
}

void Form::FireResize() {
  if (shownBefore_) Resize();
}

}  // namespace Morvane
