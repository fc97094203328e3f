#include "platform/controls/bars.h"

#include <algorithm>
#include <stdexcept>

namespace Morvane {

ToolButton& Toolbar::Button(std::string_view key) {
  const auto found = std::find_if(Buttons.begin(), Buttons.end(),
                                  [&](const ToolButton& button) { return button.key == key; });
  if (found == Buttons.end()) throw std::logic_error("no toolbar button " + std::string(key));
  return *found;
}

void Toolbar::AddMenuEntry(std::string_view key, const std::string& text) {
  Button(key).menu.push_back(text);
  Notify(ViewChange::Content);
}

void Toolbar::SetButtonEnabled(std::string_view key, bool on) {
  ToolButton& button = Button(key);
  if (button.enabled == on) return;
  button.enabled = on;
  Notify(ViewChange::Appearance);
}

void Toolbar::UserPresses(std::string_view key) {
  const ToolButton& button = Button(key);
  if (button.enabled && ButtonClick) ButtonClick(button);
}

void Toolbar::UserPicks(const std::string& menuText) {
  if (ButtonMenuClick) ButtonMenuClick(menuText);
}

void StatusBar::UserClicks(const StatusPanel& panel) {
  if (PanelClick) PanelClick(panel);
}

}  // namespace Morvane
