#pragma once

#include "platform/drawing/drawing_surface.h"

namespace Morvane {

// In millimetres: the rulers, and how far the crosses are from the corners of the printable area.
inline constexpr int kCalibrationAcross = 180;
inline constexpr int kCalibrationDown = 250;
inline constexpr double kCalibrationCross = 20;

// The sheet from which a printer's scale and shift are measured: a ruler across, one down, and a cross near
// each corner of the printable area, which is `widthMm` by `heightMm`. `left` and `top` are where that begins
// on the paper, in mm; the text on the sheet tells them.
void DrawCalibrationSheet(DrawingSurface& sheet, double left, double top, double widthMm, double heightMm);

}  // namespace Morvane
