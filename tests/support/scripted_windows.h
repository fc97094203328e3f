#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/window_system.h"

namespace Morvane {

// What a script holds next; without it the test fails.
template <typename T>
T TakeFront(std::deque<T>& script, const std::string& asked, T otherwise = {}) {
  if (script.empty()) {
    ADD_FAILURE() << "unexpected " << asked;
    return otherwise;
  }
  T value = std::move(script.front());
  script.pop_front();
  return value;
}

// Windows without a screen. Boxes are answered from a script, modal windows are played by the test; what was
// asked is recorded. A box or window that the script does not know fails the test.
class ScriptedWindows : public WindowSystem {
 public:
  struct Box {
    std::string text;
    MsgBoxButtons buttons = MsgBoxButtons::Ok;
  };

  // What the user answers next; boxes with OK alone need no answer.
  std::deque<MsgBoxAnswer> Answers;
  std::deque<std::string> Inputs;
  std::deque<std::string> Folders;
  // Plays the user in the next showing of the window of this name; it must hide or unload it.
  std::map<std::string, std::deque<std::function<void(Form&)>>> Modal;
  // Plays the user in the next popup menu: the name of the entry to choose, empty for Esc.
  std::deque<std::string> MenuChoices;

  std::function<void()> AfterBox;  // what else the user does before going on

  std::vector<Box> Boxes;

  // One event of the user: the handler, then whatever was queued meanwhile.
  void UserEvent(const std::function<void()>& handler);

  MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultText) override;
  void PopupMenu(const std::vector<MenuItem>& items) override;
  std::string BrowseForFolder(const std::string& title) override;

 protected:
  void ShowFirst(Form&) override { RunPosted(); }
  void RunModal(Form& form) override;
  void ProcessToolkitEvents() override {}
  void WakeUp() override {}
  void Quit() override {}
};

}  // namespace Morvane
