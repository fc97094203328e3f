#pragma once

#include <QByteArray>
#include <QMimeData>
#include <string>
#include <vector>

#include "platform/controls/picture_box.h"

namespace Morvane {

// Whether what is dragged holds a picture: a file by what its first bytes say, a picture without one by its
// type.
bool HoldsPicture(const QMimeData& dragged);

struct DraggedPictures {
  std::vector<std::string> nativePaths;  // by the files' names
  QByteArray bytes;                      // of the picture's own file format, where there is no file
};

// Others than pictures are left out.
DraggedPictures PicturesIn(const QMimeData& dragged);

// RuntimeError InvalidPicture for bytes that cannot be decoded.
std::vector<DroppedPicture> Dropped(const DraggedPictures& pictures);

}  // namespace Morvane
