#include "platform/qt/pictures/picture_reader.h"

#include <QColorSpace>
#include <QtEndian>
#include <algorithm>
#include <array>

namespace Morvane {
namespace {

// What the toolkit calls the formats that may be read.
constexpr std::array kFormats = {"jpeg", "jpg", "bmp", "gif", "ico", "cur", "png", "tiff", "tif", "webp"};

bool IsKnown(const QByteArray& format) {
  return std::find(kFormats.begin(), kFormats.end(), format) != kFormats.end();
}

}  // namespace

PictureReader::PictureReader(const QByteArray& file) {
  file_.setData(file);
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

QByteArray WithFileHeader(const QByteArray& file) {
  constexpr quint32 kFileHeader = 14;
  constexpr quint32 kInfoHeader = 40;
  constexpr quint32 kBitFields = 3;
  if (file.size() < kInfoHeader) return file;
  const auto word = [&](qsizetype at) { return qFromLittleEndian<quint16>(file.constData() + at); };
  const auto number = [&](qsizetype at) { return qFromLittleEndian<quint32>(file.constData() + at); };
  const quint32 header = number(0);
  const quint16 depth = word(14);
  constexpr std::array<quint16, 6> kDepths = {1, 4, 8, 16, 24, 32};
  if ((header != kInfoHeader && header != 108 && header != 124) || word(12) != 1 ||
      std::find(kDepths.begin(), kDepths.end(), depth) == kDepths.end()) {
    return file;
  }
  const quint32 colours = depth <= 8 && number(32) == 0 ? 1U << depth : std::min(number(32), 256U);
  const quint32 masks = header == kInfoHeader && number(16) == kBitFields ? 12 : 0;
  QByteArray missing(kFileHeader, '\0');
  missing[0] = 'B';
  missing[1] = 'M';
  qToLittleEndian(static_cast<quint32>(file.size()) + kFileHeader, missing.data() + 2);
  qToLittleEndian(kFileHeader + header + masks + 4 * colours, missing.data() + 10);
  return missing + file;
}

bool IsPictureType(const QByteArray& mimeType) {
  const QList<QByteArray> formats = QImageReader::imageFormatsForMimeType(mimeType);
  return std::any_of(formats.begin(), formats.end(), IsKnown);
}

}  // namespace Morvane
