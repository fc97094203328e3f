#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <numeric>
#include <set>
#include <string>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {

// Tests of the files of a machine; `disk` is what stands for "/".
class FilesTest : public ::testing::Test {
 protected:
  void Link(const std::string& target, const std::string& name) const {
    std::filesystem::create_symlink(target, disk.Path(name));
  }
  std::vector<std::string> NamesIn(const std::string& folder) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(disk.Path(folder)))
      names.push_back(entry.path().filename());
    return names;
  }
  // Each name with its type and mode and, of a small file, its text. Those that the program hides while it
  // writes are left out where it may have been killed.
  std::string Everything(bool hidden = true) const {
    namespace fs = std::filesystem;
    std::set<std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(disk.Path())) {
      const std::string name = entry.path().lexically_relative(disk.Path());
      if (!hidden && name.find("/.morvane-") != std::string::npos) continue;
      const fs::file_status status = entry.symlink_status();
      const bool small = fs::is_regular_file(status) && entry.file_size() < 10'000;
      all.insert(name + " " + std::to_string(static_cast<int>(status.type())) + " " +
                 std::to_string(static_cast<int>(status.permissions())) +
                 (small ? " " + disk.Read(name) : "") + "\n");
    }
    return std::accumulate(all.begin(), all.end(), std::string());
  }

  TestMachine machine;
  FileSystem& files = *machine.Files;
  const TemporaryFolder& disk = machine.Root;
};

// The number of the run-time error that `statement` raises; fails the test when there is none.
inline ErrorNumber NumberOfErrorIn(const std::function<void()>& statement) {
  try {
    statement();
  } catch (const RuntimeError& error) {
    EXPECT_STRNE(error.what(), "");
    return error.Number();
  }
  ADD_FAILURE() << "no run-time error";
  return {};
}

}  // namespace Morvane
