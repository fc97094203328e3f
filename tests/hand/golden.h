#pragma once

#include <QImage>
#include <string>

namespace Morvane {

// The picture taken over last, in docs/pictures, is what is right. A difference leaves what was seen in the
// build's folder "seen", marked beside it; tools/take-pictures takes it over.
void ExpectPicture(const std::string& name, const QImage& seen);

}  // namespace Morvane
