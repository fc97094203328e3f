#include "windows/contents/listing.h"

#include <algorithm>
#include <iterator>

namespace Morvane {

namespace {

LineCount Sum(LineCount a, LineCount b) {
  return std::min(a + b, kMostLines);
}

}  // namespace

void FolderBlock::AddSubFolder(const std::string& name, const FolderBlock* lines) {
  const LineCount plainBefore = subFolders_.empty() ? 0 : subFolders_.back().plainEnd;
  const LineCount inside = lines != nullptr ? lines->Count() : 0;
  subFolders_.push_back({name, lines, Sum(Sum(HeadedCount(), 1), inside), Sum(plainBefore, inside)});
}

LineCount FolderBlock::Count() const {
  return Sum(Sum(HeadedCount(), PlainCount()), files_.size());
}

FolderBlock::Place FolderBlock::Find(LineCount index) const {
  const auto holder = [&](LineCount SubFolder::*end) {
    return std::partition_point(subFolders_.begin(), subFolders_.end(),
                                [&](const SubFolder& folder) { return folder.*end <= index; });
  };
  if (index < HeadedCount()) {
    const auto folder = holder(&SubFolder::headedEnd);
    if (folder != subFolders_.begin()) index -= std::prev(folder)->headedEnd;
    if (index == 0) return {.name = folder->name, .isHeading = true};
    return {.name = folder->name, .inside = folder->lines, .index = index - 1};
  }
  index -= HeadedCount();
  if (index < PlainCount()) {
    const auto folder = holder(&SubFolder::plainEnd);
    if (folder != subFolders_.begin()) index -= std::prev(folder)->plainEnd;
    return {.name = folder->name, .inside = folder->lines, .index = index};
  }
  return {.name = files_[static_cast<std::size_t>(index - PlainCount())]};
}

void Listing::Clear() {
  blocks_.clear();
  path_.clear();
}

void Listing::Begin(const std::string& path) {
  Clear();
  path_ = path;
}

std::string Listing::List(LineCount index) const {
  if (index >= ListCount()) return {};
  std::string path = path_;
  const FolderBlock* block = &blocks_.front();
  for (;;) {
    const FolderBlock::Place place = block->Find(index);
    path = PathBelow(path, place.name);
    if (place.isHeading) return "(" + path + ")";
    if (place.inside == nullptr) return path;
    block = place.inside;
    index = place.index;
  }
}

std::string PathBelow(const std::string& folder, const std::string& name) {
  return folder.empty() || folder.ends_with('\\') ? folder + name : folder + '\\' + name;
}

}  // namespace Morvane
