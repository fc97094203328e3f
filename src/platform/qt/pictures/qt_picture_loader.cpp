#include "platform/qt/pictures/qt_picture_loader.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <algorithm>
#include <system_error>

#include "platform/old_formats/limits.h"
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

// It may hold a JPEG, which the toolkit reads when it is drawn. Null when it cannot be drawn.
PicturePtr FromSvg(const QByteArray& svg) {
  auto renderer = std::make_unique<QSvgRenderer>();
  if (!renderer->load(svg)) return nullptr;
  const QSize twips = renderer->defaultSize();
  if (twips.isEmpty() || std::max(twips.width(), twips.height()) > DecoderLimits::kSideTwips) return nullptr;
  return std::make_shared<SvgPicture>(std::move(renderer));
}

}  // namespace

RuntimeError DamagedPicture(const std::string& name) {
  return Bad(name, "è danneggiata e non può essere letta.");
}

bool StartsPicture(const QByteArray& bytes) {
  return FormatOf(bytes) || PictureReader(bytes).KnowsFormat();
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
  return std::make_shared<FilePicture>(bytes.left(extent.end), size, std::move(overview));
}

QtPictureLoader::QtPictureLoader(const FileSystem& files, std::string decoderPath, DamageShows damage)
    : files_(files), decoderPath_(std::move(decoderPath)), damage_(damage) {
  QImageReader::setAllocationLimit(PictureLimits::kDecodedMegabytes);
}

PicturePtr QtPictureLoader::LoadPicture(const std::string& path) const {
  LastRead now;
  now.nativePath = files_.ToNative(path);
  std::error_code missing;  // Read tells
  now.changed = std::filesystem::last_write_time(now.nativePath, missing);
  if (!missing) now.size = std::filesystem::file_size(now.nativePath, missing);
  if (missing) return Read(path);
  if (now.size > PictureLimits::kFileBytes) throw TooLarge(path);
  const bool same =
      last_.nativePath == now.nativePath && last_.changed == now.changed && last_.size == now.size;
  PicturePtr picture = same ? last_.picture.lock() : nullptr;
  if (picture) return picture;
  picture = Read(path);
  now.picture = picture;
  last_ = now;
  return picture;
}

PicturePtr QtPictureLoader::Read(const std::string& path) const {
  const QByteArray bytes = QByteArray::fromStdString(files_.ReadBytes(path));
  const auto oldFormat = FormatOf(bytes);
  if (!oldFormat) return PictureFromBytes(path, bytes, damage_);
  if (!QFileInfo(QString::fromStdString(decoderPath_)).isExecutable()) {
    throw Bad(path, "non può essere letta: manca il programma 'morvane-decode'.");
  }
  const auto decoded = DecodeOldFormat(decoderPath_, *oldFormat, bytes);
  if (decoded && *oldFormat == OldFormat::Iff) return PictureFromBytes(path, *decoded, damage_);
  PicturePtr drawing = decoded ? FromSvg(*decoded) : nullptr;
  if (!drawing) throw DamagedPicture(path);
  return drawing;
}

std::string OldFormatDecoderPath() {
  const QString folder = QCoreApplication::applicationDirPath();
  return QStandardPaths::findExecutable("morvane-decode", {folder, folder + "/../libexec/morvane"})
      .toStdString();
}

}  // namespace Morvane
