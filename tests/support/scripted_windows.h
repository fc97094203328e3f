#pragma once

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/window_system.h"

namespace Morvane {

// What a script holds next.
template <typename T>
T TakeFront(std::deque<T>& script, const std::string& asked) {
  if (script.empty()) throw std::logic_error("unexpected " + asked);
  T value = std::move(script.front());
  script.pop_front();
  return value;
}

// Windows without a toolkit, for what needs no more. Messages are kept, questions are answered with no.
class ScriptedWindows : public WindowSystem {
 public:
  struct Box {
    std::string text;
  };

  std::vector<Box> Boxes;
  std::deque<std::string> Folders;  // that are chosen

  // One event of the user: the handler, then whatever was queued meanwhile.
  void UserEvent(const std::function<void()>& handler) {
    Dispatch(handler);
    RunPosted();
  }

  MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string&) override {
    Boxes.push_back({text});
    return buttons == MsgBoxButtons::YesNo ? MsgBoxAnswer::No : MsgBoxAnswer::Cancel;
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override { return {}; }
  void PopupMenu(const std::vector<MenuItem>&) override {}
  std::string BrowseForFolder(const std::string& title) override { return TakeFront(Folders, title); }

 protected:
  void ShowFirst(Form&) override { RunPosted(); }
  void RunModal(Form& form) override {
    if (form.Visible()) form.UnloadForm();
  }
  void ProcessToolkitEvents() override {}
  void WakeUp() override {}
  void Quit() override {}
};

}  // namespace Morvane
