// Holds the table of levels in docs/architecture.md against the includes of the sources.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = MORVANE_SOURCE_DIR;

std::vector<std::string> Lines(const fs::path& file) {
  std::vector<std::string> lines;
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Folder -> folders it may include, from rows of the form "| `folder` | `a`, `b` | ... |".
std::map<std::string, std::set<std::string>> LevelTable() {
  const std::regex row(R"(^\| `([a-z_/]+)` \| ([^|]*) \|.*)");
  const std::regex name("`([a-z_/]+)`");
  std::map<std::string, std::set<std::string>> table;
  for (const std::string& line : Lines(kRoot / "docs" / "architecture.md")) {
    std::smatch match;
    if (!std::regex_match(line, match, row)) continue;
    const std::string allowed = match[2];
    auto& folders = table[match[1]];
    for (std::sregex_iterator it(allowed.begin(), allowed.end(), name), end; it != end; ++it)
      folders.insert((*it)[1]);
  }
  return table;
}

bool IsSource(const fs::path& file) {
  return file.extension() == ".h" || file.extension() == ".cpp";
}

TEST(Architecture, IncludesKeepToTheTableOfLevels) {
  const auto table = LevelTable();
  ASSERT_GE(table.size(), 15U) << "the table was not found";
  const std::regex include(R"re(^#include "([a-z_0-9/]+)/[a-z_0-9]+\.h".*)re");
  int checked = 0;
  for (const auto& [folder, allowed] : table) {
    ASSERT_TRUE(fs::is_directory(kRoot / folder)) << folder;
    for (const auto& entry : fs::directory_iterator(kRoot / folder)) {
      if (!IsSource(entry.path())) continue;
      for (const std::string& line : Lines(entry.path())) {
        std::smatch match;
        if (!std::regex_match(line, match, include) || match[1] == folder) continue;
        ++checked;
        EXPECT_TRUE(allowed.contains(match[1]))
            << entry.path().filename() << " of " << folder << " includes " << match[1];
      }
    }
  }
  EXPECT_GT(checked, 100);
}

TEST(Architecture, EveryFolderWithSourcesHasItsRow) {
  const auto table = LevelTable();
  const std::set<std::string> notPartOfTheProgram = {"tests", "bench", "fuzz", "build"};
  for (const auto& top : fs::directory_iterator(kRoot)) {
    if (!top.is_directory() || notPartOfTheProgram.contains(top.path().filename().string())) continue;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
      if (!IsSource(entry.path())) continue;
      const std::string folder = fs::relative(entry.path().parent_path(), kRoot).string();
      EXPECT_TRUE(table.contains(folder)) << folder;
    }
  }
}

TEST(Architecture, OnlyTheBackEndAndTheProgramsIncludeTheToolkit) {
  const std::regex toolkit(R"(^#include <(Q[A-Za-z]|Qt).*)");
  for (const auto& [folder, allowed] : LevelTable()) {
    if (folder == "platform/qt" || folder == "app") continue;
    for (const auto& entry : fs::directory_iterator(kRoot / folder)) {
      if (!IsSource(entry.path())) continue;
      for (const std::string& line : Lines(entry.path())) {
        EXPECT_FALSE(std::regex_match(line, toolkit)) << entry.path() << ": " << line;
      }
    }
  }
}

}  // namespace
