#pragma once

#include <QMetaObject>
#include <QObject>
#include <QRect>

#include "platform/controls/screen.h"

namespace Morvane {

// What windows may cover of the primary screen, in logical pixels.
QRect Desk();

// Keeps the size of the screen up to date and shows its pointer over all windows. The screen must live as
// long as this.
class QtScreen {
 public:
  explicit QtScreen(Screen& screen);
  ~QtScreen();
  QtScreen(const QtScreen&) = delete;
  QtScreen& operator=(const QtScreen&) = delete;

 private:
  void Follow();
  void Measure();
  void MirrorPointer();

  Screen& screen_;
  QObject events_;
  QMetaObject::Connection followed_;
  bool overridden_ = false;
};

}  // namespace Morvane
