#pragma once

#include <QImage>
#include <string>

#include "tests/support/test_machine.h"

namespace Morvane {

// What was taken over last is what is right: pictures in docs/pictures, sheets in tests/pictures/sheets. A
// difference leaves what was seen in the build's folder and tells where; tools/take-pictures takes it over.
void ExpectPicture(const std::string& name, const QImage& seen);
void ExpectSheets(const std::string& name, const std::vector<RecordingPrinter::Job>& jobs);

}  // namespace Morvane
