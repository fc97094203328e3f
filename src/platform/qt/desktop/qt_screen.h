#pragma once

#include <QRect>

#include "platform/controls/screen.h"

namespace Morvane {

// What windows may cover of the primary screen, in logical pixels.
QRect Desk();

// Measures the screen and shows its pointer over all windows. The screen must live as long as this.
class QtScreen {
 public:
  explicit QtScreen(Screen& screen);
  ~QtScreen();
  QtScreen(const QtScreen&) = delete;
  QtScreen& operator=(const QtScreen&) = delete;

 private:
  void MirrorPointer();

  Screen& screen_;
  bool overridden_ = false;
};

}  // namespace Morvane
