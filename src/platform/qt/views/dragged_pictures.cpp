#include "platform/qt/views/dragged_pictures.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>

#include "platform/files/name_order.h"
#include "platform/qt/pictures/picture_reader.h"
#include "platform/qt/pictures/qt_picture_loader.h"

namespace Morvane {
namespace {

constexpr qint64 kHeadBytes = 4096;
constexpr const char* kNameOnPage = "della pagina web";

// Only plain files: reading a pipe would wait for its writer.
bool IsPictureFile(const QString& path) {
  if (!QFileInfo(path).isFile()) return false;
  QFile file(path);
  return file.open(QIODevice::ReadOnly) && StartsPicture(file.read(kHeadBytes));
}

// The first of the formats that the other program offers, its own choice; empty without one.
QString PictureFormat(const QMimeData& dragged) {
  for (const QString& format : dragged.formats()) {
    if (IsPictureType(format.toLatin1())) return format;
  }
  return {};
}

}  // namespace

// The bytes of a picture without a file are not asked for before it is dropped: they may take their time.
bool HoldsPicture(const QMimeData& dragged) {
  const QList<QUrl> urls = dragged.urls();
  return !PictureFormat(dragged).isEmpty() || std::any_of(urls.begin(), urls.end(), [](const QUrl& url) {
    return url.isLocalFile() && IsPictureFile(url.toLocalFile());
  });
}

DraggedPictures PicturesIn(const QMimeData& dragged) {
  std::vector<QFileInfo> files;
  for (const QUrl& url : dragged.urls()) {
    if (url.isLocalFile() && IsPictureFile(url.toLocalFile())) files.emplace_back(url.toLocalFile());
  }
  std::stable_sort(files.begin(), files.end(), [](const QFileInfo& left, const QFileInfo& right) {
    return NameIsBefore(left.fileName().toStdString(), right.fileName().toStdString());
  });
  DraggedPictures pictures;
  for (const QFileInfo& file : files) {
    pictures.nativePaths.push_back(file.absoluteFilePath().toStdString());
  }
  if (files.empty()) pictures.bytes = dragged.data(PictureFormat(dragged));
  return pictures;
}

std::vector<DroppedPicture> Dropped(const DraggedPictures& pictures) {
  if (pictures.nativePaths.empty()) return {{"", PictureFromBytes(kNameOnPage, pictures.bytes)}};
  std::vector<DroppedPicture> files;
  for (const std::string& path : pictures.nativePaths) files.push_back({path, nullptr});
  return files;
}

}  // namespace Morvane
