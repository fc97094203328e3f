#include "platform/controls/bars.h"

#include <algorithm>
#include <stdexcept>

namespace Morvane {

void Toolbar::SetButtonEnabled(std::string_view key, bool on) {
  const auto button = std::find_if(Buttons.begin(), Buttons.end(),
                                   [&](const ToolButton& candidate) { return candidate.key == key; });
  if (button == Buttons.end()) throw std::logic_error("no button " + std::string(key) + " in " + Name());
  if (button->enabled == on) return;
  button->enabled = on;
  OnViewChange(ViewChange::Appearance);
}

}  // namespace Morvane
