#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <numeric>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {

// Tests of the files of a machine; `disk` is what stands for "/".
class FilesTest : public ::testing::Test {
 protected:
  // Each name below a folder with its mode and, of a small file, its text. Those that the program hides while
  // it writes are left out where it may have been killed.
  std::string Everything(bool hidden = true, const std::string& below = "") const {
    namespace fs = std::filesystem;
    std::set<std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(disk.Path(below))) {
      const std::string name = entry.path().lexically_relative(disk.Path());
      if (!hidden && name.find("/.morvane-") != std::string::npos) continue;
      const fs::file_status status = entry.symlink_status();
      std::ostringstream line;
      line << name << ' ' << std::oct << static_cast<int>(status.permissions());
      if (fs::is_symlink(status)) line << " -> " << fs::read_symlink(entry.path()).native();
      if (fs::is_regular_file(status) && entry.file_size() < 10'000) line << ' ' << disk.Read(name);
      all.insert(line.str() + '\n');
    }
    return std::accumulate(all.begin(), all.end(), std::string());
  }

  TestMachine machine;
  FileSystem& files = *machine.Files;
  const TemporaryFolder& disk = machine.Root;
};

}  // namespace Morvane
