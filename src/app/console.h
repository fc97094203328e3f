#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "platform/controls/window_system.h"

namespace Morvane {

// Tells on standard error what went wrong.
inline void Complain(const std::string& text) {
  std::fputs(("morvane-print: " + text + '\n').c_str(), stderr);
}

// No windows at all: what a window would say goes to standard error, and nothing can be asked.
class ConsoleWindows : public WindowSystem {
 public:
  MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons, const std::string&) override {
    Complain(text);
    return MsgBoxAnswer::Ok;
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override { return {}; }
  void PopupMenu(const std::vector<MenuItem>&) override {}
  std::string BrowseForFolder(const std::string&) override { return {}; }

 protected:
  void ShowFirst(Form&) override {}
  void RunModal(Form&) override {}
  void ProcessToolkitEvents() override {}
  void WakeUp() override {}
  void Quit() override {}
};

}  // namespace Morvane
