#include "tests/support/held_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace Morvane {

void ExpectText(const std::string& path, const std::string& seen) {
  const std::filesystem::path left = MORVANE_SEEN "/" + path;
  std::filesystem::create_directories(left.parent_path());
  std::ofstream(left) << seen;
  const std::string diff = "diff -uN '" MORVANE_SOURCE_DIR "/" + path + "' '" + left.string() + "' >&2";
  const bool isSame = std::system(diff.c_str()) == 0;
  EXPECT_TRUE(isSame) << path;
  if (isSame) std::filesystem::remove(left);
}

void ExpectCases(const std::string& path,
                 const std::function<std::string(const std::string& given)>& outcome) {
  const std::string arrow = "  => ";
  constexpr std::size_t kLine = 120;  // characters
  std::ifstream cases(MORVANE_SOURCE_DIR "/" + path);
  EXPECT_TRUE(cases.is_open()) << path;
  std::string seen;
  std::string given;
  const auto give = [&] {
    if (given.empty()) return;
    const std::string comes = outcome(given);
    const bool isRow = std::count(given.begin(), given.end(), '\n') == 1 &&
                       comes.find('\n') == std::string::npos &&
                       given.size() + arrow.size() + comes.size() <= kLine;
    if (isRow) seen.pop_back();
    seen += (isRow ? arrow : "") + comes + '\n';
    given.clear();
  };
  for (std::string line; std::getline(cases, line);) {
    const bool isGiven = line.starts_with("> ");
    const std::size_t end = isGiven ? line.find(arrow) : std::string::npos;
    if (!isGiven) give();
    if (isGiven) given += line.substr(2, end - 2) + '\n';
    if (isGiven || line.starts_with('#')) seen += line.substr(0, end) + '\n';
    if (end != std::string::npos) give();
  }
  give();
  ExpectText(path, seen);
}

}  // namespace Morvane
