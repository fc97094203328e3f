#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace Morvane {

// A plain JPEG of `fileSize`, without the rotation that it may record, averaged to `size`, which is no
// larger, while it is decoded. Null when the decoder gives up; where a file ends too soon the rest is grey.
QImage DecodeJpeg(const QByteArray& file, QSize fileSize, QSize size);

}  // namespace Morvane
