#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/form.h"

namespace Morvane {

enum class MsgBoxButtons { Ok = 0, OkCancel = 1, YesNo = 4 };
enum class MsgBoxAnswer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

// Shows windows and boxes, and runs the events. One thread runs everything.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  // Shows the first window: load, first resize, first activation, then the view.
  void ShowMain(Form& form);
  // Shows a window over the one on top and returns when it is hidden or unloaded. The window below is
  // activated again by a queued event, not before the caller's handler ends or lets events through.
  void ShowModal(Form& form);
  // Lets waiting events run.
  void DoEvents();
  // Puts a handler in the queue of events.
  void Post(std::function<void()> handler);
  // Runs a handler of an event. The one guard of the program: whatever fails in it is told in a plain
  // message, and the program goes on.
  void Dispatch(const std::function<void()>& handler);
  // Ends the program at once; nothing is shown or asked any more.
  void End();
  bool Ended() const { return ended_; }
  // The window that has the user's input; null before the first.
  Form* TopForm() const { return shown_.empty() ? nullptr : shown_.back(); }

  // Modal boxes; without a title they show the program's.
  virtual MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons = MsgBoxButtons::Ok,
                              const std::string& title = {}) = 0;
  // The typed text, empty on Cancel.
  virtual std::string InputBox(const std::string& prompt, const std::string& title,
                               const std::string& defaultText) = 0;
  // Shows a menu at the pointer and runs the chosen entry's action before it returns. A failure of the action
  // reaches the caller.
  virtual void PopupMenu(const std::vector<MenuItem>& items) = 0;
  // The system's folder chooser: the chosen folder in Windows form, empty on cancel.
  virtual std::string BrowseForFolder(const std::string& title) = 0;

 protected:
  virtual void ShowFirst(Form& form) = 0;
  // Returns when the window is no longer visible or the program has ended.
  virtual void RunModal(Form& form) = 0;
  virtual void ProcessToolkitEvents() = 0;
  // Asks the toolkit to call RunPosted once it is idle.
  virtual void WakeUp() = 0;
  virtual void Quit() = 0;
  void RunPosted();

 private:
  std::vector<Form*> shown_;
  std::deque<std::function<void()>> posted_;
  bool ended_ = false;
};

}  // namespace Morvane
