#pragma once

#include <functional>
#include <string>

#include "platform/units.h"

namespace Morvane {

enum class MousePointer { Default = 0, Hourglass = 11, ArrowHourglass = 13, Custom = 99 };

struct ScreenSize {
  double width;  // twips
  double height;
};

// The screen that windows stand on. The back-end tells the size and mirrors the pointer.
class Screen {
 public:
  std::function<void()> OnPointerChange = [] {};
  // What windows may cover now.
  std::function<ScreenSize()> Measure = [] {
    return ScreenSize{1024 * kTwipsPerPixel, 768 * kTwipsPerPixel};
  };

  double TwipsPerPixelX = kTwipsPerPixel;
  double TwipsPerPixelY = kTwipsPerPixel;

  MousePointer Pointer() const { return pointer_; }
  void SetMousePointer(MousePointer pointer) {
    if (pointer_ == pointer) return;
    pointer_ = pointer;
    OnPointerChange();
  }
  // Artwork of the custom pointer.
  const std::string& MouseIcon() const { return mouseIcon_; }
  void SetMouseIcon(const std::string& imageKey) { mouseIcon_ = imageKey; }

 private:
  MousePointer pointer_ = MousePointer::Default;
  std::string mouseIcon_;
};

// Shows that the program is at work, until the end of a scope.
class BusyPointer {
 public:
  explicit BusyPointer(Screen& screen, MousePointer pointer = MousePointer::Hourglass) : screen_(screen) {
    screen_.SetMousePointer(pointer);
  }
  ~BusyPointer() { screen_.SetMousePointer(MousePointer::Default); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  Screen& screen_;
};

}  // namespace Morvane
