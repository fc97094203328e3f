#pragma once

#include "platform/drawing/drawing_surface.h"

namespace Morvane {

// Millimetres, from the corner of the printable area.
constexpr double kCalibrationCross = 20;

// The sheet from which a printer's scale and shift are measured: a ruler of 180 mm across, one of 250 mm down
// and crosses at 20 mm from the corners of the printable area, which is `widthMm` by `heightMm`. `left` and
// `top` are where the printable area begins on the paper, in mm; the text on the sheet tells them.
void DrawCalibrationSheet(DrawingSurface& sheet, double left, double top, double widthMm, double heightMm);

}  // namespace Morvane
