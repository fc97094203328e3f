#include "platform/controls/window_system.h"

#include <algorithm>
#include <exception>
#include <new>
#include <utility>

#include "platform/runtime_error.h"

namespace Morvane {

void WindowSystem::ShowMain(Form& form) {
  shown_.push_back(&form);
  Dispatch([&] { form.BeginShow(); });
  if (!ended_) ShowFirst(form);
}

void WindowSystem::ShowModal(Form& form) {
  // Loading may fail; then nothing was shown, and the failure is the caller's.
  form.EnsureLoaded();
  shown_.push_back(&form);
  Dispatch([&] { form.BeginShow(); });
  if (form.Visible() && !ended_) RunModal(form);
  shown_.erase(std::find(shown_.begin(), shown_.end(), &form));
  if (Form* const below = TopForm()) {
    Post([this, below] {
      if (TopForm() == below) below->ActivateIfVisible();
    });
  }
}

void WindowSystem::DoEvents() {
  RunPosted();
  ProcessToolkitEvents();
}

void WindowSystem::Post(std::function<void()> handler) {
  posted_.push_back(std::move(handler));
  WakeUp();
}

void WindowSystem::RunPosted() {
  while (!posted_.empty() && !ended_) {
    const std::function<void()> handler = std::move(posted_.front());
    posted_.pop_front();
    Dispatch(handler);
  }
}

void WindowSystem::Dispatch(const std::function<void()>& handler) {
  if (ended_) return;
  try {
    handler();
  } catch (const RuntimeError& error) {
    MsgBox(error.what());
  } catch (const std::bad_alloc&) {
    MsgBox("Memoria insufficiente per completare l'operazione.");
  } catch (const std::exception&) {
    // A fault of the program's own; the user's pictures are still there.
    MsgBox("L'operazione non è riuscita per un errore interno del programma.");
  }
}

void WindowSystem::End() {
  ended_ = true;
  posted_.clear();
  Quit();
}

}  // namespace Morvane
