#pragma once

#include <QStringList>

#include "platform/drawing/drawing_list.h"

namespace Morvane {

// A line a shape: kind, place and size in mm, colour where it isn't black, what else there is.
QStringList ShapesAsText(const DrawingList& drawing);
bool IsDrawing(const QStringList& lines);

// The same to be read: equal shapes once, with how often, and texts of one font below each other as a column,
// with the place of the first, how far each lies below the one before, and all that is written.
QStringList Folded(const QStringList& shapes);

}  // namespace Morvane
