#include "platform/qt/pictures/picture_cache.h"

#include <QtConcurrentMap>
#include <algorithm>
#include <set>

#include "platform/qt/pictures/qt_picture.h"

namespace Morvane {
namespace {

QImage Decoded(const PicturePtr& picture, QSize pixels) {
  const auto* decodable = dynamic_cast<const QtPicture*>(picture.get());
  return decodable == nullptr ? QImage() : decodable->Decode(pixels);
}

}  // namespace

PictureCache::Entry& PictureCache::EntryOf(const PicturePtr& picture) {
  Entry& entry = entries_[picture.get()];
  // A picture that went may have left its place to another.
  if (entry.picture.lock() != picture) entry = {.picture = picture, .pixels = {}, .image = {}};
  entry.lastUse = ++uses_;
  return entry;
}

QImage PictureCache::Image(const PicturePtr& picture, QSize pixels, Pixels which) {
  Entry& entry = EntryOf(picture);
  const bool lastWillDo = which == Pixels::AsLastTime && !entry.image.isNull();
  if (entry.pixels == pixels || lastWillDo) return entry.image;
  entry.image = Decoded(picture, pixels);
  entry.pixels = pixels;
  const QImage image = entry.image;
  DropUnused();
  return image;
}

void PictureCache::Prepare(const std::vector<Wish>& wishes) {
  std::size_t bytes = 0;
  std::set<Entry*> missing;
  for (const auto& [picture, pixels] : wishes) {
    bytes += 4 * static_cast<std::size_t>(pixels.width()) * static_cast<std::size_t>(pixels.height());
    const bool isFile = dynamic_cast<const FilePicture*>(picture.get()) != nullptr;
    if (!isFile || bytes > limitBytes_) continue;
    Entry& entry = EntryOf(picture);
    if (entry.pixels != pixels) missing.insert(&entry);
    entry.pixels = pixels;
  }
  QtConcurrent::blockingMap(
      missing, [](Entry* entry) { entry->image = Decoded(entry->picture.lock(), entry->pixels); });
}

void PictureCache::DropUnused() {
  std::erase_if(entries_, [](const auto& entry) { return entry.second.picture.expired(); });
  std::size_t bytes = 0;
  for (const auto& [picture, entry] : entries_) bytes += static_cast<std::size_t>(entry.image.sizeInBytes());
  while (bytes > limitBytes_ && entries_.size() > 1) {
    const auto oldest = std::min_element(entries_.begin(), entries_.end(), [](const auto& a, const auto& b) {
      return a.second.lastUse < b.second.lastUse;
    });
    bytes -= static_cast<std::size_t>(oldest->second.image.sizeInBytes());
    entries_.erase(oldest);
  }
}

}  // namespace Morvane
