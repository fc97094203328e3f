#pragma once

#include <QFont>

#include "platform/font.h"

namespace Morvane {

// Text of any size is laid out at this one and scaled, so that its proportions are the same on every device.
inline constexpr int kReferencePixels = 1000;

// The font at the reference size: no hinting, no kerning.
QFont ReferenceFont(const Font& font);

}  // namespace Morvane
