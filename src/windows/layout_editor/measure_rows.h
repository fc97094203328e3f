#pragma once

#include <array>

#include "core/measures.h"
#include "windows/layout_editor/dialog.h"

namespace Morvane {

// One measure of the edit row: where it is shown and kept, and the buttons that step it.
struct MeasureRow {
  TextBox Dialog::*box;
  CoverTable<double> LayoutTables::*table;
  double (*stored)(double mm);
  double (*shown)(double value);
  CommandButton Dialog::*down;
  CommandButton Dialog::*up;
  bool downMarksModified;
};

// The step to the left does not mark the layout as modified: a user who only
// nudged a cover to the left is not asked about it.
inline constexpr std::array<MeasureRow, 4> kMeasureRows = {{
    {&Dialog::Text1, &LayoutTables::CopLarg, CmFromMm, MmFromCm, &Dialog::Command6, &Dialog::Command7, true},
    {&Dialog::Text2, &LayoutTables::CopAlte, CmFromMm, MmFromCm, &Dialog::Command8, &Dialog::Command9, true},
    {&Dialog::Text4, &LayoutTables::CopDistx, InchesFromMm, MmFromInches, &Dialog::Command10,
     &Dialog::Command11, false},
    {&Dialog::Text5, &LayoutTables::CopDisty, InchesFromMm, MmFromInches, &Dialog::Command12,
     &Dialog::Command13, true},
}};

}  // namespace Morvane
