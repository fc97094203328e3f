#pragma once

#include <QMimeData>
#include <vector>

#include "platform/controls/picture_box.h"

namespace Morvane {

// Whether what is dragged holds a picture, by what the first bytes say. Files count before what lies beside
// them.
bool HoldsPicture(const QMimeData& dragged);

// The pictures in it, files by their names, others left out. RuntimeError InvalidPicture for a picture
// without a file that cannot be decoded.
std::vector<DroppedPicture> PicturesIn(const QMimeData& dragged);

}  // namespace Morvane
