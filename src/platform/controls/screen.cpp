#include "platform/controls/screen.h"

namespace Morvane {

void Screen::SetMousePointer(MousePointer pointer) {
  if (pointer_ == pointer) return;
  pointer_ = pointer;
  if (OnPointerChange) OnPointerChange();
}

}  // namespace Morvane
