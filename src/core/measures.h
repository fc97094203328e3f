#pragma once

#include "platform/units.h"

namespace Morvane {

// Between the millimetres of files and text boxes and the units of the cover tables. The order of the
// operations is part of the result: 25 mm must come back as 25 after 15 digits, from every version of the
// program.

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

}  // namespace Morvane
