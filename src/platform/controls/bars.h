#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"

namespace Morvane {

enum class ToolStyle { Button, Separator, DropDown };

struct ToolButton {
  std::string key;
  ToolStyle style = ToolStyle::Button;
  std::string toolTip = {};
  std::string imageKey = {};
  bool enabled = true;
  std::vector<std::string> menu = {};  // texts of a drop-down's entries
};

// Buttons count from 1, separators too.
class Toolbar : public Control {
 public:
  using Control::Control;

  std::function<void(const ToolButton&)> ButtonClick;
  std::function<void(const std::string& text)> ButtonMenuClick;

  std::vector<ToolButton> Buttons;
  // std::logic_error for an unknown key.
  ToolButton& Button(std::string_view key);
  void AddMenuEntry(std::string_view key, const std::string& text);
  void SetButtonEnabled(std::string_view key, bool on);

  void UserPresses(std::string_view key);
  void UserPicks(const std::string& menuText);
};

struct StatusPanel {
  std::string text;
  std::string toolTip;
};

class StatusBar : public Control {
 public:
  using Control::Control;

  std::function<void(const StatusPanel&)> PanelClick;

  std::vector<StatusPanel> Panels;

  void UserClicks(const StatusPanel& panel);
};

}  // namespace Morvane
