#pragma once

#include <QImage>
#include <QStringList>
#include <string>

#include "platform/drawing/drawing_list.h"

namespace Morvane {

// What was taken over last is what is right: pictures in docs/pictures, texts where their path says. A
// difference leaves what was seen in the build's folder and tells where; tools/take-pictures takes it over.
void ExpectPicture(const std::string& name, const QImage& seen);
void ExpectText(const std::string& path, const QString& seen);

// A line a shape: kind, measures in mm, colour, what else there is.
QStringList ShapesAsText(const DrawingList& drawing);

}  // namespace Morvane
