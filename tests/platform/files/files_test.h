#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
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
