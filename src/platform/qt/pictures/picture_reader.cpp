#include "platform/qt/pictures/picture_reader.h"

#include <QColorSpace>
#include <QtEndian>
#include <algorithm>
#include <array>

namespace Morvane {
namespace {

// What the toolkit calls the formats that may be read.
constexpr std::array kFormats = {"jpeg", "jpg", "bmp",  "dib", "gif", "ico",
                                 "cur",  "png", "tiff", "tif", "webp"};

bool IsKnown(const QByteArray& format) {
  return std::find(kFormats.begin(), kFormats.end(), format) != kFormats.end();
}

// A device-independent bitmap begins with the size of its header, where a bitmap file has "BM"; the toolkit
// does not see by itself that it is one.
bool IsBitmapWithoutFileHeader(const QByteArray& file) {
  constexpr std::array<quint32, 3> kHeaders = {40, 108, 124};
  if (file.size() < 40 || qFromLittleEndian<quint16>(file.constData() + 12) != 1) return false;
  const auto header = qFromLittleEndian<quint32>(file.constData());
  return std::find(kHeaders.begin(), kHeaders.end(), header) != kHeaders.end();
}

}  // namespace

PictureReader::PictureReader(const QByteArray& file) {
  file_.setData(file);
  if (IsBitmapWithoutFileHeader(file)) reader_.setFormat("dib");
  reader_.setDevice(&file_);
  reader_.setAutoTransform(true);
  format_ = reader_.format();
  if (format_ == "ico" || format_ == "cur") JumpToLargest();
}

bool PictureReader::KnowsFormat() const {
  return IsKnown(format_);
}

bool PictureReader::IsTurned() const {
  return reader_.transformation().testFlag(QImageIOHandler::TransformationRotate90);
}

QSize PictureReader::Size() const {
  return IsTurned() ? reader_.size().transposed() : reader_.size();
}

// A file may claim more images than it has room for: each has 16 bytes in its list.
void PictureReader::JumpToLargest() {
  int largest = 0;
  qint64 most = 0;
  const qsizetype count = std::min<qsizetype>(reader_.imageCount(), file_.size() / 16);
  for (int index = 0; index < count && reader_.jumpToImage(index); ++index) {
    const qint64 pixels = qint64{reader_.size().width()} * reader_.size().height();
    if (pixels > most) {
      most = pixels;
      largest = index;
    }
  }
  reader_.jumpToImage(largest);
}

// Screen and sheet carry no profile; a picture without one is sRGB already, and stays as it is.
QImage PictureReader::Read(QSize size) {
  reader_.setScaledSize(IsTurned() ? size.transposed() : size);
  QImage image = reader_.read();
  image.convertToColorSpace(QColorSpace::SRgb);
  return image;
}

bool IsPictureType(const QByteArray& mimeType) {
  const QList<QByteArray> formats = QImageReader::imageFormatsForMimeType(mimeType);
  return std::any_of(formats.begin(), formats.end(), IsKnown);
}

}  // namespace Morvane
