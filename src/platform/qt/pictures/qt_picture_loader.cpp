#include "platform/qt/pictures/qt_picture_loader.h"

#include <QFileInfo>
#include <QImageReader>
#include <QSvgRenderer>
#include <system_error>

#include "platform/files/program_part.h"
#include "platform/qt/pictures/jpeg_extent.h"
#include "platform/qt/pictures/old_formats.h"
#include "platform/qt/pictures/picture_limits.h"
#include "platform/qt/pictures/picture_reader.h"
#include "platform/qt/pictures/qt_picture.h"
#include "platform/runtime_error.h"

namespace Morvane {
namespace {

RuntimeError Bad(const std::string& name, const std::string& reason) {
  return {ErrorNumber::InvalidPicture, "L'immagine '" + name + "' " + reason};
}

RuntimeError TooLarge(const std::string& name) {
  return Bad(name, "è troppo grande.");
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
PicturePtr DecodeOld(const std::string& decoderPath, OldFormat format, const QByteArray& bytes) {
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
  return FormatOf(bytes) || PictureReader(WithFileHeader(bytes)).KnowsFormat();
}

PicturePtr PictureFromBytes(const std::string& name, const QByteArray& bytes, DamageShows damage) {
  PictureReader reader(bytes);
  if (!reader.KnowsFormat()) throw Bad(name, "è di un formato sconosciuto.");
  const QSize size = reader.Size();
  if (size.isEmpty()) throw DamagedPicture(name);
  const bool isJpeg = bytes.startsWith("\xFF\xD8");
  const JpegExtent extent = isJpeg ? ExtentOfJpeg(bytes) : JpegExtent{bytes.size(), 0};
  if (PictureLimits::Exceeds(size, extent.scans)) throw TooLarge(name);
  QImage overview;
  if (damage == DamageShows::AtLoading) {
    overview = reader.Read(FilePicture::OverviewSize(size));
    if (overview.isNull()) throw DamagedPicture(name);
  }
  return std::make_shared<FilePicture>(bytes.first(extent.end), size, std::move(overview));
}

QtPictureLoader::QtPictureLoader(const FileSystem& files, std::string decoderPath, DamageShows damage)
    : files_(files), decoderPath_(std::move(decoderPath)), damage_(damage) {
  QImageReader::setAllocationLimit(PictureLimits::kDecodedMegabytes);
}

PicturePtr QtPictureLoader::LoadPicture(const std::string& path) const {
  LastRead now{files_.ToNative(path), {}, 0, {}};
  std::error_code missing;  // Read tells
  now.changed = std::filesystem::last_write_time(now.nativePath, missing);
  if (!missing) now.size = std::filesystem::file_size(now.nativePath, missing);
  if (missing) return Read(path);
  if (now.size > PictureLimits::kFileBytes) throw TooLarge(path);
  {
    const std::lock_guard lock(lastMutex_);
    const PicturePtr picture = last_.picture.lock();
    const bool same =
        last_.nativePath == now.nativePath && last_.changed == now.changed && last_.size == now.size;
    if (picture && same) return picture;
  }
  const PicturePtr picture = Read(path);
  now.picture = picture;
  const std::lock_guard lock(lastMutex_);
  last_ = now;
  return picture;
}

PicturePtr QtPictureLoader::Read(const std::string& path) const {
  const QByteArray bytes = QByteArray::fromStdString(files_.ReadBytes(path));
  const auto oldFormat = FormatOf(bytes);
  if (!oldFormat) return PictureFromBytes(path, WithFileHeader(bytes), damage_);
  if (!QFileInfo(QString::fromStdString(decoderPath_)).isExecutable()) {
    throw Bad(path, "non può essere letta: manca il programma 'morvane-decode'.");
  }
  PicturePtr picture = DecodeOld(decoderPath_, *oldFormat, bytes);
  if (!picture) throw DamagedPicture(path);
  return picture;
}

std::string OldFormatDecoderPath() {
  return ProgramPart("morvane-decode");
}

}  // namespace Morvane
