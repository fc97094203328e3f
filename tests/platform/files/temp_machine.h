#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/files/file_system.h"
#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {

// A temporary folder with files in it.
class TempFolder {
 public:
  std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }
  const std::string& Path() const { return folder_.Path(); }

  void Write(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
    std::ofstream(Path(name), std::ios::binary) << bytes;
  }
  std::string Read(const std::string& name) const {
    std::ifstream stream(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  void MakeFolder(const std::string& name) const { std::filesystem::create_directories(Path(name)); }
  bool Has(const std::string& name) const { return std::filesystem::exists(Path(name)); }

 private:
  TemporaryFolder folder_;
};

// A machine in a temporary folder: its root is "root", its table of mounts and labels lie beside it.
class FilesTest : public ::testing::Test {
 protected:
  FilesTest() { temp_.MakeFolder("root/home/u/Scrivania"); }

  FileSystem Machine(const std::string& mountInfo = "") const {
    temp_.Write("mountinfo", mountInfo);
    return FileSystem(temp_.Path("root"), MountTable(temp_.Path("mountinfo"), temp_.Path("by-label")),
                      temp_.Path("root/home/u/Scrivania"));
  }

  TempFolder temp_;
};

// The number of the run-time error that `statement` raises; fails the test when there is none.
template <typename Statement>
ErrorNumber NumberOfErrorIn(Statement statement) {
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
