#include "platform/controls/control.h"

#include <algorithm>
#include <utility>

#include "platform/controls/form.h"
#include "platform/runtime_error.h"

namespace Morvane {

Control::Control(Container& parent, std::string name) : parent_(parent), name_(std::move(name)) {
  parent.Adopt(*this);
}

void Control::SetSide(double& side, double size) {
  if (size < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue, "Dimensione del controllo non valida.");
  if (side == size) return;
  side = size;
  Resized();
  OnViewChange(ViewChange::Geometry);
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

void Container::OrderChildren(const std::function<int(const Control&)>& rank) {
  std::stable_sort(children_.begin(), children_.end(),
                   [&](const Control* a, const Control* b) { return rank(*a) < rank(*b); });
}

}  // namespace Morvane
