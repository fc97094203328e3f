#include "platform/controls/control.h"

#include <algorithm>
#include <utility>

#include "platform/controls/form.h"
#include "platform/runtime_error.h"

namespace Morvane {

namespace {

void RefuseNegative(double size) {
  if (size < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue, "Dimensione del controllo non valida.");
}

}  // namespace

Control::Control(Container& parent, std::string name) : parent_(parent), name_(std::move(name)) {
  parent.Adopt(*this);
}

void Control::SetWidth(double width) {
  RefuseNegative(width);
  if (width_ == width) return;
  width_ = width;
  Resized();
  Notify(ViewChange::Geometry);
}

void Control::SetHeight(double height) {
  RefuseNegative(height);
  if (height_ == height) return;
  height_ = height;
  Resized();
  Notify(ViewChange::Geometry);
}

void Control::SetFocus() {
  parent_.OwnerForm().MoveFocus(this);
}

void Control::ApplyRow(const ControlRow& row) {
  SetCaption(std::string(row.caption));
  SetToolTipText(std::string(row.toolTip));
  spokenName_ = row.spokenName;
  SetLeft(row.left);
  SetTop(row.top);
  SetWidth(row.width);
  SetHeight(row.height);
}

void Control::PerformClick() {
  if (Click) Click();
}

void Control::PerformMouseDown(MouseButton button, double xTwips, double yTwips) {
  if (MouseDown) MouseDown(button, EventX(xTwips), EventY(yTwips));
}

void Control::PerformMouseMove(double xTwips, double yTwips) {
  if (MouseMove) MouseMove(EventX(xTwips), EventY(yTwips));
}

bool Control::PerformKeyDown(int keyCode) {
  if (!KeyDown) return false;
  KeyDown(keyCode);
  return true;
}

void Container::OrderChildren(const std::function<int(const Control&)>& rank) {
  std::stable_sort(children_.begin(), children_.end(),
                   [&](const Control* a, const Control* b) { return rank(*a) < rank(*b); });
}

}  // namespace Morvane
