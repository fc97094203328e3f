#pragma once

#include <QImage>
#include <QPolygon>
#include <QRegion>
#include <string>

namespace Morvane {

// Where the pictures differ at a glance, in device pixels; empty where nobody would see it. Colours count
// that are not met within a pixel of their place: a caption that lost two columns, a line that is missing,
// what stands two pixels off. How a release of the toolkit or the font library smooths an edge doesn't.
QPolygon SeenAtAGlance(const QImage& held, const QImage& seen);

// The picture taken over last, in docs/pictures, is what is right. A difference leaves what was seen in the
// build's folder "seen", marked beside it; tools/take-pictures takes it over. `others`, in device pixels, is
// not compared: what the toolkit draws in each release as it likes.
void ExpectPicture(const std::string& name, const QImage& seen, const QRegion& others = {});

}  // namespace Morvane
