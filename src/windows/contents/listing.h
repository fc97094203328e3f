#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <utility>
#include <vector>

namespace Morvane {

// A number of lines. It stays at its largest value, 2^63 - 1, beyond that: the list is then longer than
// anybody reads, and every line below that index is still found.
using LineCount = std::uint64_t;
inline constexpr LineCount kMostLines = 0x7FFF'FFFF'FFFF'FFFF;

// The lines of one folder: its sub-folders, each a heading followed by its own lines; then those lines once
// more, without headings; then its files. A sub-folder's lines are not copied but referred to, so that the
// doubling at each level costs nothing.
class FolderBlock {
 public:
  // `lines` is complete and outlives this block; nullptr for a folder of which only the heading is listed.
  void AddSubFolder(const std::string& name, const FolderBlock* lines);
  void RepeatSubFolders() { repeated_ = true; }
  void AddFiles(std::vector<std::string> names) { files_ = std::move(names); }

  LineCount Count() const;

  // Where a line, below Count(), stands: here, or inside a sub-folder at a line of its own.
  struct Place {
    const std::string& name;  // of the file or sub-folder
    bool isHeading = false;
    const FolderBlock* inside = nullptr;
    LineCount index = 0;
  };
  Place Find(LineCount index) const;

 private:
  struct SubFolder {
    std::string name;
    const FolderBlock* lines;
    LineCount headedEnd;  // lines up to here, headings included
    LineCount plainEnd;   // and without headings
  };

  LineCount HeadedCount() const { return subFolders_.empty() ? 0 : subFolders_.back().headedEnd; }
  LineCount PlainCount() const { return subFolders_.empty() || !repeated_ ? 0 : subFolders_.back().plainEnd; }

  std::vector<SubFolder> subFolders_;
  std::vector<std::string> files_;
  bool repeated_ = false;
};

// The contents of a disc as lines of text: "(" + full path + ")" for a folder, the full path for a file.
class Listing {
 public:
  Listing() = default;
  Listing(const Listing&) = delete;
  Listing& operator=(const Listing&) = delete;

  void Clear();
  // Empties the list and names the folder that it is about. With an empty path the lines are the names alone.
  void Begin(const std::string& path);
  // A block to be filled; it lives until the list is emptied. The first one is the chosen folder's.
  FolderBlock& NewBlock() { return blocks_.emplace_back(); }

  LineCount ListCount() const { return blocks_.empty() ? 0 : blocks_.front().Count(); }
  // The line, or an empty text outside the list. Takes time by the depth of the folder, whatever the index.
  std::string List(LineCount index) const;

 private:
  std::string path_;
  std::deque<FolderBlock> blocks_;
};

// The path of something in a folder; a drive's root brings its own backslash.
std::string PathBelow(const std::string& folder, const std::string& name);

}  // namespace Morvane
