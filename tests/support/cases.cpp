#include "tests/support/cases.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace Morvane {

void ExpectCases(const std::string& file,
                 const std::function<std::string(const std::string& given)>& outcome) {
  const std::string path = MORVANE_SOURCE_DIR "/" + file;
  std::ifstream cases(path);
  std::string held;
  std::string seen;
  std::string given;
  const auto give = [&] {
    if (!given.empty()) seen += outcome(given) + '\n';
    given.clear();
  };
  for (std::string line; std::getline(cases, line);) {
    held += line + '\n';
    const bool isGiven = line.starts_with("> ");
    if (isGiven) given += line.substr(2) + '\n';
    if (!isGiven) give();
    if (isGiven || line.starts_with('#')) seen += line + '\n';
  }
  give();
  EXPECT_FALSE(held.empty()) << path;
  if (std::getenv("MORVANE_TAKE_PICTURES") != nullptr) {
    std::ofstream(path) << seen;
  } else {
    EXPECT_EQ(seen, held) << path;
  }
}

}  // namespace Morvane
