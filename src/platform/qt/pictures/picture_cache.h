#pragma once

#include <QImage>
#include <QSize>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/picture.h"

namespace Morvane {

enum class Pixels {
  Exact,      // as many as asked for
  AsLastTime  // those of the last painting, where there was one: for a size that won't stay
};

// The last decode of each picture that is still in use somewhere. Another size takes the place of the one
// that was there; above the limit the pictures that were not asked for longest are dropped.
class PictureCache {
 public:
  explicit PictureCache(std::size_t limitBytes = std::size_t{256} << 20) : limitBytes_(limitBytes) {}

  // The picture in at most this many pixels; a null image when it cannot be decoded.
  QImage Image(const PicturePtr& picture, QSize pixels, Pixels which = Pixels::Exact);

  struct Wish {
    PicturePtr picture;
    QSize pixels;
  };
  // Decodes what a sheet will ask for next, up to the limit, on all processors at once.
  void Prepare(const std::vector<Wish>& wishes);

  void Clear() { entries_.clear(); }

 private:
  struct Entry {
    std::weak_ptr<const Picture> picture;
    QSize pixels;
    QImage image;
    std::uint64_t lastUse = 0;
  };

  Entry& EntryOf(const PicturePtr& picture);
  void DropUnused();

  const std::size_t limitBytes_;
  std::unordered_map<const Picture*, Entry> entries_;
  std::uint64_t uses_ = 0;
};

}  // namespace Morvane
