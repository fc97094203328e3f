#include "platform/qt/pictures/qt_picture_loader.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QSvgRenderer>
#include <QtEndian>
#include <algorithm>
#include <array>

#include "platform/files/program_part.h"
#include "platform/qt/pictures/in_place.h"
#include "platform/qt/pictures/jpeg_segments.h"
#include "platform/qt/pictures/old_formats.h"
#include "platform/qt/pictures/picture_limits.h"
#include "platform/qt/pictures/qt_picture.h"
#include "platform/runtime_error.h"

namespace Morvane {
namespace {

constexpr std::uintmax_t kMostFileBytes = std::uintmax_t{256} << 20;
constexpr int kMostDecodedMegabytes = 1024;

// Names for the user, what the reader calls the formats that may be read.
constexpr std::array kFormats = {"jpeg", "jpg", "bmp", "gif", "ico", "cur", "png", "tiff", "tif", "webp"};

RuntimeError Bad(const std::string& name, const std::string& reason) {
  return {ErrorNumber::InvalidPicture, "L'immagine '" + name + "' " + reason};
}

// A device-independent bitmap is a bitmap file that lacks its first 14 bytes: these; empty for any other
// file.
QByteArray MissingFileHeader(const QByteArray& bytes) {
  constexpr quint32 kFileHeader = 14;
  constexpr quint32 kInfoHeader = 40;
  constexpr quint32 kBitFields = 3;
  if (bytes.size() < kInfoHeader) return {};
  const auto word = [&](qsizetype at) { return qFromLittleEndian<quint16>(bytes.constData() + at); };
  const auto number = [&](qsizetype at) { return qFromLittleEndian<quint32>(bytes.constData() + at); };
  const quint32 header = number(0);
  const quint16 depth = word(14);
  constexpr std::array<quint16, 6> kDepths = {1, 4, 8, 16, 24, 32};
  if ((header != kInfoHeader && header != 108 && header != 124) || word(12) != 1 ||
      std::find(kDepths.begin(), kDepths.end(), depth) == kDepths.end()) {
    return {};
  }
  const quint32 colours = depth <= 8 && number(32) == 0 ? 1U << depth : std::min(number(32), 256U);
  const quint32 masks = header == kInfoHeader && number(16) == kBitFields ? 12 : 0;
  QByteArray missing(kFileHeader, '\0');
  missing[0] = 'B';
  missing[1] = 'M';
  qToLittleEndian(static_cast<quint32>(bytes.size()) + kFileHeader, missing.data() + 2);
  qToLittleEndian(kFileHeader + header + masks + 4 * colours, missing.data() + 10);
  return missing;
}

// An icon file holds several sizes; the largest is the one to print. It may claim more than it has room for:
// each has 16 bytes in its list.
int LargestImage(QImageReader& reader, qsizetype fileBytes) {
  int largest = 0;
  qint64 most = 0;
  const qsizetype count = std::min<qsizetype>(reader.imageCount(), fileBytes / 16);
  for (int index = 0; index < count && reader.jumpToImage(index); ++index) {
    const qint64 pixels = qint64{reader.size().width()} * reader.size().height();
    if (pixels > most) {
      most = pixels;
      largest = index;
    }
  }
  reader.jumpToImage(largest);
  return largest;
}

bool IsKnown(const QByteArray& format) {
  return std::find(kFormats.begin(), kFormats.end(), format) != kFormats.end();
}

// Most files are photos, about which the toolkit need not be asked.
FilePicture::Facts FactsOf(const std::string& path, const QByteArray& bytes) {
  if (const auto jpeg = ReadPlainJpeg(bytes)) return {{}, jpeg->size, jpeg->rotation};
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer);
  const QByteArray format = reader.format();
  if (!IsKnown(format)) throw Bad(path, "è di un formato sconosciuto.");
  const int index = format == "ico" || format == "cur" ? LargestImage(reader, bytes.size()) : 0;
  return {format, reader.size(), reader.transformation(), index};
}

PicturePtr LoadPixels(const std::string& path, const QByteArray& bytes, PictureCheck check) {
  const FilePicture::Facts facts = FactsOf(path, bytes);
  if (facts.size.isEmpty()) throw DamagedPicture(path);
  const bool isJpeg = bytes.startsWith("\xFF\xD8");
  const JpegExtent extent = isJpeg ? ExtentOfJpeg(bytes) : JpegExtent{bytes.size(), 0};
  if (CostsTooMuch(facts.size, extent.scans)) throw Bad(path, "è troppo grande.");
  auto picture = std::make_shared<FilePicture>(QByteArrayView(bytes).first(extent.end), facts);
  const bool damaged = (check == PictureCheck::Whole && !picture->CanBeDecoded()) ||
                       (check == PictureCheck::Preview && !picture->CanBePreviewed());
  if (damaged) throw DamagedPicture(path);
  return picture;
}

// It may hold a JPEG, which the toolkit reads when it is drawn.
PicturePtr FromSvg(const DecodedSvg& svg) {
  auto renderer = std::make_unique<QSvgRenderer>();
  if (!renderer->load(svg.text)) return nullptr;
  return std::make_shared<SvgPicture>(std::move(renderer), svg.widthTwips, svg.heightTwips);
}

PicturePtr FromPixels(const DecodedPixels& pixels) {
  const QImage rows(reinterpret_cast<const uchar*>(pixels.rgba.constData()), pixels.width, pixels.height,
                    4 * qsizetype{pixels.width}, QImage::Format_RGBA8888);
  QImage image = rows.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return nullptr;
  return std::make_shared<PixelPicture>(std::move(image));
}

// Null when it cannot be decoded.
PicturePtr DecodeOld(const std::string& decoderPath, OldFormat format, const std::string& bytes) {
  const auto decoded = DecodeOldFormat(decoderPath, format, bytes);
  if (!decoded) return nullptr;
  const auto* svg = std::get_if<DecodedSvg>(&*decoded);
  return svg ? FromSvg(*svg) : FromPixels(std::get<DecodedPixels>(*decoded));
}

}  // namespace

RuntimeError DamagedPicture(const std::string& name) {
  return Bad(name, "è danneggiata e non può essere letta.");
}

bool StartsPicture(const QByteArray& bytes) {
  if (FormatOf(bytes.toStdString())) return true;
  QBuffer buffer;
  buffer.setData(MissingFileHeader(bytes) + bytes);
  QImageReader reader(&buffer);
  return IsKnown(reader.format());
}

bool IsPictureType(const QByteArray& mimeType) {
  const QList<QByteArray> formats = QImageReader::imageFormatsForMimeType(mimeType);
  return std::any_of(formats.begin(), formats.end(), IsKnown);
}

PicturePtr PictureFromBytes(const std::string& name, const QByteArray& bytes) {
  return LoadPixels(name, bytes, PictureCheck::Whole);
}

QtPictureLoader::QtPictureLoader(const FileSystem& files, std::string decoderPath, PictureCheck check)
    : files_(files), decoderPath_(std::move(decoderPath)), check_(check) {
  QImageReader::setAllocationLimit(kMostDecodedMegabytes);
}

PicturePtr QtPictureLoader::Load(const std::string& path, PictureCheck check) const {
  Loaded loaded{files_.ToNative(path), {}, 0, {}};
  std::error_code missing;  // Read tells
  loaded.changed = std::filesystem::last_write_time(loaded.file, missing);
  if (!missing) loaded.bytes = std::filesystem::file_size(loaded.file, missing);
  if (missing) return Read(path, check);
  if (loaded.bytes > kMostFileBytes) throw Bad(path, "è troppo grande.");
  {
    const std::lock_guard lock(lastMutex_);
    const PicturePtr picture = last_.picture.lock();
    const bool same =
        last_.file == loaded.file && last_.changed == loaded.changed && last_.bytes == loaded.bytes;
    if (picture && same) return picture;
  }
  const PicturePtr picture = Read(path, check);
  loaded.picture = picture;
  const std::lock_guard lock(lastMutex_);
  last_ = loaded;
  return picture;
}

PicturePtr QtPictureLoader::Read(const std::string& path, PictureCheck check) const {
  std::string bytes = files_.ReadBytes(path);
  if (const auto format = FormatOf(bytes)) {
    if (!QFileInfo(QString::fromStdString(decoderPath_)).isExecutable()) {
      throw Bad(path, "non può essere letta: manca il programma 'morvane-decode'.");
    }
    PicturePtr picture = DecodeOld(decoderPath_, *format, bytes);
    if (!picture) throw DamagedPicture(path);
    return picture;
  }
  bytes.insert(0, MissingFileHeader(InPlace(bytes)).toStdString());
  return LoadPixels(path, InPlace(bytes), check);
}

std::string OldFormatDecoderPath() {
  return ProgramPart("morvane-decode");
}

}  // namespace Morvane
