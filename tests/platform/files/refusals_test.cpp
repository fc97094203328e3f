#include <sys/stat.h>

#include <sstream>

#include "files_test.h"
#include "tests/support/held_text.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;

TEST_F(FilesTest, WhatIsRefusedHasItsNumberAndLeavesTheDiskAsItIs) {
  for (const char* name : {"a.txt", "b.txt", "sola.txt", "enorme.bin"}) {
    disk.Write(std::string("d/") + name, name);
  }
  ::chmod(disk.Path("d/sola.txt").c_str(), 0444);
  fs::resize_file(disk.Path("d/enorme.bin"), 512ULL * 1024 * 1024 + 1);
  disk.MakeFolder("d/cartella");
  ::mkfifo(disk.Path("d/tubo").c_str(), 0600);
  Link("/dev/zero", "d/zero");
  Link("anello", "d/anello");
  Link("assente", "d/rotto");

  const std::map<std::string, std::function<void(const std::string&)>> calls = {
      {"read", [&](const auto& path) { files.ReadBytes(path); }},
      {"open", [&](const auto& path) { files.OpenForInput(path); }},
      {"list", [&](const auto& path) { files.PlainFiles(path); }},
      {"folders", [&](const auto& path) { files.SubFolders(path); }},
      {"all", [&](const auto& path) { files.ReadFolder(path); }},
      {"identity", [&](const auto& path) { files.FolderIdentity(path); }},
      {"native", [&](const auto& path) { files.ToNative(path); }},
      {"change", [&](const auto& path) { files.ChDir(path); }},
      {"write", [&](const auto& path) { files.WriteText(path, "nuovo"); }},
      {"kill", [&](const auto& path) { files.Kill(path); }},
      {"move", [&](const auto& path) { files.Name(path, "d\\nuovo.txt"); }},
      {"move-to", [&](const auto& path) { files.Name("d\\a.txt", path); }}};
  const std::string before = Everything();
  ExpectCases("tests/platform/files/refusals.txt", [&](const std::string& given) {
    std::set<std::string> numbers;
    std::istringstream lines(given);
    for (std::string line; std::getline(lines, line);) {
      const std::size_t last = line.rfind(' ') + 1;
      std::istringstream words(line.substr(0, last));
      for (std::string call; words >> call;) {
        SCOPED_TRACE(line);
        numbers.insert(
            std::to_string(static_cast<int>(NumberOfErrorIn([&] { calls.at(call)(line.substr(last)); }))));
      }
    }
    return std::accumulate(numbers.begin(), numbers.end(), std::string());
  });
  EXPECT_EQ(NumberOfErrorIn([&] { files.WriteText(std::string("d\\a\0b", 5), ""); }),
            ErrorNumber::BadFileName);
  EXPECT_EQ(Everything(), before);
}

}  // namespace
}  // namespace Morvane
