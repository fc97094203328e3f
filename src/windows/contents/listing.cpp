#include "windows/contents/listing.h"

#include <algorithm>
#include <utility>

namespace Morvane {

void Listing::Add(std::string line) {
  if (kept_.size() < kKeptLines) kept_.push_back(std::move(line));
  count_ = std::min(count_ + 1, kMostLines);
}

void Listing::Repeat(Range lines, const std::string& path, const std::string& as) {
  for (LineCount i = lines.first; i < lines.end && kept_.size() < kKeptLines; ++i) {
    std::string line = kept_[i];
    line.replace(line.starts_with('(') ? 1 : 0, path.size(), as);
    kept_.push_back(std::move(line));
  }
  count_ = std::min(count_ + (lines.end - lines.first), kMostLines);
}

}  // namespace Morvane
