#include <sys/stat.h>

#include <map>

#include "files_test.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;

std::map<std::string, std::string> EverythingBelow(const TemporaryFolder& disk) {
  std::map<std::string, std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(disk.Path())) {
    const auto status = entry.symlink_status();
    const bool small = fs::is_regular_file(status) && entry.file_size() < 1000;
    found[entry.path()] = std::to_string(static_cast<int>(status.type())) + " " +
                          std::to_string(static_cast<int>(status.permissions())) + " " +
                          (small ? disk.Read(entry.path().lexically_relative(disk.Path())) : "");
  }
  return found;
}

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

  using Call = std::function<void(const std::string&)>;
  const Call read = [&](const auto& path) { files.ReadBytes(path); };
  const Call open = [&](const auto& path) { files.OpenForInput(path); };
  const Call list = [&](const auto& path) { files.PlainFiles(path); };
  const Call subFolders = [&](const auto& path) { files.SubFolders(path); };
  const Call readFolder = [&](const auto& path) { files.ReadFolder(path); };
  const Call identity = [&](const auto& path) { files.FolderIdentity(path); };
  const Call native = [&](const auto& path) { files.ToNative(path); };
  const Call change = [&](const auto& path) { files.ChDir(path); };
  const Call write = [&](const auto& path) { files.WriteText(path, "nuovo"); };
  const Call kill = [&](const auto& path) { files.Kill(path); };
  const Call move = [&](const auto& path) { files.Name(path, "d\\nuovo.txt"); };
  const Call moveTo = [&](const auto& path) { files.Name("d\\a.txt", path); };

  const std::vector<std::string> noFile = {"d\\cartella", "d\\tubo", "d\\zero", "d\\anello"};
  std::vector<std::string> badNames = {
      "d\\a/b.txt", "d\\../../fuori.txt", "d\\C:x.txt",    "d\\D:", "d\\", "d\\.",
      "d\\..",      "d\\sotto\\",         "d\\D:\\x.jpg\\"};
  badNames.push_back("d\\" + std::string(256, 'n'));
  badNames.push_back(std::string("d\\a\0b", 5));
  const std::vector<std::string> noFolder = {"manca\\b.txt", "d\\a.txt\\b.txt", "d\\D:\\x.txt", "Q:\\b.txt"};
  const struct {
    std::vector<Call> calls;
    ErrorNumber number;
    std::vector<std::string> paths;
  } refusals[] = {
      {{read, open, kill, move}, ErrorNumber::FileNotFound, {"d\\manca", "d\\manca.txt"}},
      {{read, open}, ErrorNumber::FileNotFound, {"d\\rotto"}},
      {{read, open, kill, move, write, moveTo}, ErrorNumber::PathNotFound, noFolder},
      {{list, subFolders, readFolder, identity}, ErrorNumber::PathNotFound, {"manca", "Q:\\"}},
      {{list, subFolders, readFolder, change}, ErrorNumber::PathNotFound, {"d\\a.txt"}},
      {{list, subFolders, readFolder, identity}, ErrorNumber::PathFileAccess, {"d\\anello"}},
      {{native}, ErrorNumber::PathNotFound, {"Q:\\"}},
      {{native}, ErrorNumber::BadFileName, {"d\\a/b", "d\\../a"}},
      {{read, open}, ErrorNumber::PathFileAccess, noFile},
      {{read}, ErrorNumber::OutOfMemory, {"d\\enorme.bin"}},
      {{write, kill}, ErrorNumber::PathFileAccess, {"d\\sola.txt", "d\\cartella", "d\\tubo"}},
      {{write, moveTo}, ErrorNumber::BadFileName, badNames},
      {{moveTo}, ErrorNumber::FileAlreadyExists, {"d\\B.TXT", "D", "d\\rotto"}},
  };
  const auto before = EverythingBelow(disk);
  for (const auto& refusal : refusals) {
    for (std::size_t i = 0; i < refusal.calls.size(); ++i) {
      for (const std::string& path : refusal.paths) {
        EXPECT_EQ(NumberOfErrorIn([&] { refusal.calls[i](path); }), refusal.number) << i << " " << path;
      }
    }
  }
  EXPECT_EQ(EverythingBelow(disk), before);
}

}  // namespace
}  // namespace Morvane
