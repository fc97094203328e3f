#pragma once

#include <QStringList>

#include "platform/drawing/drawing_list.h"

namespace Morvane {

// A line a shape: kind, place and size in mm, colour where it isn't black, what else there is. On the screen,
// where a pixel is a quarter of a mm, two decimals do. Equal shapes stand once, with how often. Texts of one
// font below each other are a column: the place of the first, how far each lies below the one before, and all
// that is written. The page's own text is "(the footer)".
QStringList ShapesAsText(const DrawingList& drawing, int decimals = 3);

}  // namespace Morvane
