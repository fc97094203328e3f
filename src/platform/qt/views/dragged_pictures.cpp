#include "platform/qt/views/dragged_pictures.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>
#include <string>

#include "platform/files/name_order.h"
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
QByteArray PictureBytes(const QMimeData& dragged) {
  for (const QString& format : dragged.formats()) {
    if (!format.startsWith("image/")) continue;
    const QByteArray bytes = dragged.data(format);
    if (StartsPicture(bytes)) return bytes;
  }
  return {};
}

}  // namespace

bool HoldsPicture(const QMimeData& dragged) {
  const QList<QUrl> urls = dragged.urls();
  return std::any_of(urls.begin(), urls.end(),
                     [](const QUrl& url) { return url.isLocalFile() && IsPictureFile(url.toLocalFile()); }) ||
         !PictureBytes(dragged).isEmpty();
}

std::vector<DroppedPicture> PicturesIn(const QMimeData& dragged) {
  std::vector<QFileInfo> files;
  for (const QUrl& url : dragged.urls()) {
    if (url.isLocalFile() && IsPictureFile(url.toLocalFile())) files.emplace_back(url.toLocalFile());
  }
  std::stable_sort(files.begin(), files.end(), [](const QFileInfo& left, const QFileInfo& right) {
    return NameIsBefore(left.fileName().toStdString(), right.fileName().toStdString());
  });
  std::vector<DroppedPicture> pictures;
  for (const QFileInfo& file : files) pictures.push_back({file.absoluteFilePath().toStdString(), nullptr});
  if (!pictures.empty()) return pictures;
  const QByteArray bytes = PictureBytes(dragged);
  if (!bytes.isEmpty()) pictures.push_back({"", PictureFromBytes(kNameOnPage, bytes)});
  return pictures;
}

}  // namespace Morvane
