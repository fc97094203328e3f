#pragma once

#include <array>
#include <string_view>

#include "core/app_state.h"
#include "platform/units.h"

namespace Morvane {

// Between the millimetres of files and text boxes and the units of the cover tables. The order of the
// operations is part of the result: 25 mm must come back as 25 after 15 digits.

// Width and height.
constexpr double CmFromMm(double mm) {
  return mm / 10;
}
constexpr double MmFromCm(double cm) {
  return cm * 10;
}

// Left and top.
constexpr double InchesFromMm(double mm) {
  return (mm / 10) / kCentimetresPerInch;
}
constexpr double MmFromInches(double inches) {
  return (inches * 10) * kCentimetresPerInch;
}

// One of the four measures of a cover.
struct Measure {
  std::string_view key;  // in layout files
  CoverTable<double> LayoutTables::*table;
  double (*stored)(double mm);
  double (*mm)(double stored);
};

inline constexpr Measure kDistx{"Distx", &LayoutTables::CopDistx, InchesFromMm, MmFromInches};
inline constexpr Measure kDisty{"Disty", &LayoutTables::CopDisty, InchesFromMm, MmFromInches};
inline constexpr Measure kLarg{"Larg", &LayoutTables::CopLarg, CmFromMm, MmFromCm};
inline constexpr Measure kAlte{"Alte", &LayoutTables::CopAlte, CmFromMm, MmFromCm};
inline constexpr std::array kMeasures = {kDistx, kDisty, kLarg, kAlte};

}  // namespace Morvane
