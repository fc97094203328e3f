#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/controls/window_system.h"

namespace Morvane {

// The place of one window in the program: made and loaded when first asked for, kept while hidden, made anew
// after it was unloaded. `Window` has a member `form`.
template <typename Window>
class WindowSlot {
 public:
  explicit WindowSlot(std::function<std::unique_ptr<Window>()> make) : make_(std::move(make)) {}

  // The window, loaded. Two windows that load each other find the half-loaded one here; one whose loading
  // fails is not kept.
  Window& Get() {
    if (window_) return *window_;
    window_ = make_();
    try {
      window_->form.EnsureLoaded();
    } catch (...) {
      window_.reset();
      throw;
    }
    return *window_;
  }

  void ShowModal(WindowSystem& windows) {
    windows.ShowModal(Get().form);
    if (window_->form.Unloaded()) window_.reset();
  }

 private:
  std::function<std::unique_ptr<Window>()> make_;
  std::unique_ptr<Window> window_;
};

}  // namespace Morvane
