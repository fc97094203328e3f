#pragma once

#include <QImage>
#include <QRegion>
#include <string>

namespace Morvane {

// The picture taken over last, in docs/pictures, is what is right. A difference leaves what was seen in the
// build's folder "seen", marked beside it; tools/take-pictures takes it over. `others`, in device pixels, is
// not compared: what the toolkit draws in each release as it likes.
void ExpectPicture(const std::string& name, QImage seen, const QRegion& others = {});

}  // namespace Morvane
