#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace Morvane {

// A plain JPEG of `fileSize`, without the rotation that it may record, averaged to `size`, which is no
// larger, while it is decoded. Null when the decoder gives up; where a file ends too soon the rest is grey.
QImage DecodeJpeg(const QByteArray& file, QSize fileSize, QSize size);

// For a sheet: eight bits, colours at half the resolution. Empty when it cannot be encoded.
QByteArray EncodeJpeg(const QImage& image);

// A sheet stores its pictures as JPEG. So that they are encoded on all processors at once, or not at all
// where the file itself will do, an image can carry the JPEG of its own pixels along. The toolkit's writer of
// sheets asks for a writer of JPEG, and gets the one of app/jpeg_plugin.cpp, which takes what is carried.
void CarryJpeg(QImage& image, const QByteArray& jpeg);
// Empty when there is none, or when the image was cut or stretched since.
QByteArray CarriedJpeg(const QImage& image);

}  // namespace Morvane
