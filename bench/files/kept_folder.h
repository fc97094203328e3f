#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace Morvane {

// A folder of MORVANE_BENCH_FILES that is made once and kept for later runs: the many files of some
// benchmarks take minutes to make. One that was left half made is made anew.
inline std::string KeptFolder(const std::string& name,
                              const std::function<void(const std::filesystem::path& folder)>& make) {
  const std::filesystem::path kept = std::filesystem::path(std::getenv("MORVANE_BENCH_FILES")) / name;
  const std::filesystem::path whole = kept.string() + ".whole";
  if (!std::filesystem::exists(whole)) {
    std::filesystem::remove_all(kept);
    std::filesystem::create_directories(kept);
    make(kept);
    std::ofstream{whole};
  }
  return kept;
}

}  // namespace Morvane
