#pragma once

#include <QByteArray>
#include <QImage>

namespace Morvane {

// True for the files of most cameras: three colours of eight bits, sRGB as far as they tell.
bool IsPlainJpeg(const QByteArray& file);

// A plain JPEG of `fileSize`, without the rotation that it may record, averaged to the smaller `size` while
// it is decoded. Null when the decoder gives up; where a file ends too soon the rest is grey.
QImage DecodeJpeg(const QByteArray& file, QSize fileSize, QSize size);

// Eight bits, colours at half the resolution; quality from 1 to 100. Empty when it cannot be encoded.
QByteArray EncodeJpeg(const QImage& image, int quality);

// A sheet stores its pictures as JPEG. So that they are encoded on all processors at once, or not at all
// where the file itself will do, an image can carry the JPEG of its own pixels along. The toolkit's writer of
// sheets asks for a writer of JPEG, and gets the one of app/jpeg_plugin.cpp, which takes what is carried.
void CarryJpeg(QImage& image, const QByteArray& jpeg);
// Empty when there is none, or when the image was cut or stretched since.
QByteArray CarriedJpeg(const QImage& image);

// The file without all that cameras write into it but the picture. Empty when it is not plain or not whole.
QByteArray BarePicture(const QByteArray& jpeg);

// Lets the toolkit find the writer of JPEG. Called once, when the application is there and no picture was
// read yet; without it sheets are made more slowly, and each of their pictures is encoded once more.
void InstallJpegWriter();

}  // namespace Morvane
