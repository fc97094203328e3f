#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/controls/form.h"

namespace Morvane {

// A clock of a window: fires Tick every Interval milliseconds while it runs and the window is there. Each
// tick ends before the next begins. An interval is at least 1.
class Timer {
 public:
  Timer(Form& form, std::string name) : name_(std::move(name)) { form.Timers.push_back(this); }
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  std::function<void()> Tick = [] {};
  std::function<void()> OnChange = [] {};  // for the view

  const std::string& Name() const { return name_; }
  int Interval() const { return interval_; }
  void SetInterval(int milliseconds) {
    interval_ = milliseconds;
    OnChange();
  }
  bool Running() const { return running_; }
  void SetRunning(bool on) {
    running_ = on;
    OnChange();
  }

 private:
  std::string name_;
  int interval_ = 1000;
  bool running_ = false;
};

}  // namespace Morvane
