#pragma once

#include <array>

#include "core/measures.h"
#include "windows/layout_editor/dialog.h"

namespace Morvane {

// One measure of the edit row: where it is shown, and the buttons that step it.
struct MeasureRow {
  const Measure& measure;
  TextBox Dialog::*box;
  CommandButton Dialog::*down;
  CommandButton Dialog::*up;
  bool downMarksModified = true;
};

// The step to the left does not mark the layout as modified.
inline constexpr std::array<MeasureRow, 4> kMeasureRows = {{
    {kLarg, &Dialog::Text1, &Dialog::Command6, &Dialog::Command7},
    {kAlte, &Dialog::Text2, &Dialog::Command8, &Dialog::Command9},
    {kDistx, &Dialog::Text4, &Dialog::Command10, &Dialog::Command11, false},
    {kDisty, &Dialog::Text5, &Dialog::Command12, &Dialog::Command13},
}};

}  // namespace Morvane
