#pragma once

#include <QRect>

#include "platform/controls/screen.h"

namespace Morvane {

// What windows may cover of the screen that the user works on, at first the primary one, in logical pixels.
QRect Desk();

// From now on the screen has the size of the desktop's, and its pointer is shown over all windows.
void FollowDesktop(Screen& screen);

}  // namespace Morvane
