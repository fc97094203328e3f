#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/menu.h"

namespace Morvane {

// One button of a bar, by default a separator.
struct ToolButton {
  std::string key;  // shown as the button's text where it has no image
  std::string toolTip;
  std::string imageKey;
  std::function<void()> Click;
  std::vector<MenuItem> menu = {};  // of the arrow beside the button; empty for none
  bool enabled = true;
};

// A row of buttons with images; buttons of texts share its whole width, as in a status bar.
class Toolbar : public Control {
 public:
  using Control::Control;

  std::vector<ToolButton> Buttons;
  // std::logic_error for an unknown key.
  void SetButtonEnabled(std::string_view key, bool on);
};

}  // namespace Morvane
