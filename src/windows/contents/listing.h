#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Morvane {

// A number of lines. It stays at its largest value, 2^63 - 1, beyond that.
using LineCount = std::uint64_t;
inline constexpr LineCount kMostLines = 0x7FFF'FFFF'FFFF'FFFF;

// Lines that are kept. A sheet of the smallest print has place for two thousand.
inline constexpr std::size_t kKeptLines = 10'000;

// The contents of a disc as lines of text: "(" + full path + ")" for a folder, the full path for a file. The
// first kKeptLines are kept; the rest is counted.
class Listing {
 public:
  // Lines that follow each other, `end` not among them.
  struct Range {
    LineCount first = 0;
    LineCount end = 0;
  };

  void Clear() { *this = Listing(); }
  void Add(std::string line);
  // Adds the lines of a folder, listed before as `path`, once more as those of the folder `as`.
  void Repeat(Range lines, const std::string& path, const std::string& as);

  LineCount ListCount() const { return count_; }
  const std::vector<std::string>& Kept() const { return kept_; }

 private:
  std::vector<std::string> kept_;
  LineCount count_ = 0;
};

}  // namespace Morvane
