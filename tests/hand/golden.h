#pragma once

#include <QImage>
#include <QStringList>
#include <string>

#include "tests/support/test_machine.h"

namespace Morvane {

// What was taken over last is what is right: pictures in docs/pictures, sheets in tests/pictures/sheets and
// other texts where their path says. A difference leaves what was seen in the build's folder and tells where;
// tools/take-pictures takes it over.
void ExpectPicture(const std::string& name, const QImage& seen);
void ExpectSheets(const std::string& name, const std::vector<RecordingPrinter::Job>& jobs);
void ExpectText(const std::string& path, const QString& seen);

// A line a shape: kind, measures in mm, colour, what else there is.
QStringList ShapesAsText(const DrawingList& drawing);

}  // namespace Morvane
