#pragma once

#include <vector>

#include "platform/drawing/drawing_list.h"
#include "platform/qt/painting/text_lines.h"
#include "platform/qt/pictures/picture_cache.h"

class QPainter;

namespace Morvane {

// What one painting leaves for the next.
struct PaintCache {
  PictureCache pictures;
  TextLines lines;
};

// Paints a drawing on the screen or on paper; the one painter of both. The painter must be scaled so that one
// unit is one twip, with the surface's origin at 0,0; its state is the same afterwards. Hairlines are one
// device pixel on a screen and 1/600 inch on paper. A picture that cannot be decoded leaves its box as it
// is; the result names those.
std::vector<PicturePtr> PaintDrawing(QPainter& painter, const DrawingList& drawing, PaintCache& cache,
                                     Pixels pixels = Pixels::Exact);

}  // namespace Morvane
