#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "files_test.h"
#include "platform/files/app_folder.h"
#include "platform/windows_1252.h"
#include "tests/support/held_text.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;

std::string Joined(const std::vector<std::string>& names) {
  std::string all;
  for (const std::string& name : names) all += (all.empty() ? "" : " | ") + name;
  return all;
}

// "%E9" is the byte of that number.
std::string Bytes(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape = text[i] == '%';
    bytes += escape ? static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16)) : text[i];
    if (escape) i += 2;
  }
  return bytes;
}

std::string Readable(const std::string& bytes) {
  std::ostringstream text;
  for (const char byte : bytes) {
    const int value = static_cast<unsigned char>(byte);
    byte == '\r' || value >= 0x80 ? text << '%' << std::hex << std::uppercase << value / 16 << value % 16
                                  : text << byte;
  }
  return text.str();
}

// What is done on the disk, by names from its root, and what the program's calls give, by their paths.
class Disk : public FilesTest {
 protected:
  Disk() {
    ::umask(022);
    std::signal(SIGXFSZ, SIG_IGN);
  }

  using Call = std::function<std::string(const std::string& of, const std::string& with)>;
  template <typename Deed>
  static Call Silent(Deed deed) {
    return [deed](const std::string& of, const std::string& with) {
      deed(of, with);
      return std::string();
    };
  }

  template <typename Deed>
  static void Each(const std::string& names, Deed deed) {
    std::istringstream words(names);
    for (std::string name; words >> name;) deed(name);
  }
  std::string WithoutRoot(std::string text) const {
    for (std::size_t at = 0; (at = text.find(disk.Path())) != std::string::npos;)
      text.erase(at, disk.Path().size());
    return text;
  }
  // A disk that takes files of so many bytes only is as good as full.
  static void LimitFiles(const std::string& bytes) {
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes.empty() ? limit.rlim_max : std::stoul(bytes);
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  // Executable's folder, data folder, home, what is shipped.
  std::string FindApp(const std::string& of) const {
    std::istringstream given(of);
    std::string places[4];
    for (std::string& place : places) {
      std::getline(given >> std::ws, place, ',');
      if (place.starts_with('/')) place = disk.Path() + place;
    }
    const AppFolder found = FindAppFolder({places[0], places[1], places[2], places[3]});
    return WithoutRoot(found.path + (found.problem.empty() ? "" : ": " + found.problem));
  }
  std::string Kind(const std::string& path) const {
    if (files.FileExists(path)) return files.FolderExists(path) ? "both" : "file";
    return files.FolderExists(path) ? "folder" : "nothing";
  }
  std::string Where(const std::string& path) const {
    const std::string kind = Kind(path);
    return kind == "nothing" ? kind : kind + " " + ReadableUtf8(WithoutRoot(files.ToNative(path)));
  }
  std::string Type(const std::string& drive) const {
    const DriveType type = files.TypeOfDrive(drive);
    return type == DriveType::CdRom ? "disc" : type == DriveType::NoRoot ? "none" : "another";
  }
  std::string Lines(const std::string& path) const {
    std::vector<std::string> lines;
    const auto file = files.OpenForInput(path);
    for (std::string line; file->ReadLine(line);) lines.push_back("\"" + line + "\"");
    return Joined(lines);
  }
  std::string All(const std::string& path) const {
    const FolderEntries all = files.ReadFolder(path);
    return Joined(all.folders) + "; " + Joined(all.files) + "; left out: " + std::to_string(all.leftOut);
  }

  std::string known;
  const std::map<std::string, Call> calls = {
      {"folder", Silent([&](auto& of, auto&) { Each(of, [&](auto& name) { disk.MakeFolder(name); }); })},
      {"file", Silent([&](auto& of, auto& with) {
         Each(of, [&](auto& name) { disk.Write(Bytes(name), Bytes(with)); });
       })},
      {"keep", Silent([&](auto&, auto&) { known = Everything(); })},
      {"changed", [&](auto&, auto&) { return Everything() == known ? "no" : "yes"; }},
      {"huge", Silent([&](auto& of, auto& with) { fs::resize_file(disk.Path(of), std::stoull(with)); })},
      {"fifo", Silent([&](auto& of, auto&) { ::mkfifo(disk.Path(of).c_str(), 0600); })},
      {"link", Silent([&](auto& of, auto& with) { Link(with, of); })},
      {"mode",
       Silent([&](auto& of, auto& with) { ::chmod(disk.Path(of).c_str(), std::stoi(with, nullptr, 8)); })},
      {"remove", Silent([&](auto& of, auto&) { fs::remove_all(disk.Path(of)); })},
      {"full", Silent([&](auto& of, auto&) { LimitFiles(of); })},
      {"tree", [&](auto& of, auto&) { return Readable(Everything(true, of)); }},
      {"app", [&](auto& of, auto&) { return FindApp(of); }},
      {"is", [&](auto& of, auto&) { return Kind(of); }},
      {"where", [&](auto& of, auto&) { return Where(of); }},
      {"told", [&](auto& of, auto&) { return files.FromNative(disk.Path() + Bytes(of)); }},
      {"roots", [&](auto&, auto&) { return Joined(files.DriveRoots()); }},
      {"type", [&](auto& of, auto&) { return Type(of); }},
      {"label", [&](auto& of, auto&) { return files.VolumeLabel(of); }},
      {"desktop", [&](auto&, auto&) { return files.DesktopFolder(); }},
      {"read", [&](auto& of, auto&) { return files.ReadBytes(of); }},
      {"open", [&](auto& of, auto&) { return Lines(of); }},
      {"list", [&](auto& of, auto&) { return Joined(files.PlainFiles(of)); }},
      {"folders", [&](auto& of, auto&) { return Joined(files.SubFolders(of)); }},
      {"first",
       [&](auto& of, auto& with) {
         return files.FirstSubFolder(of, [&](const std::string& name) { return name == with; });
       }},
      {"all", [&](auto& of, auto&) { return All(of); }},
      {"identity", [&](auto& of, auto&) { return WithoutRoot(files.FolderIdentity(of)); }},
      {"native", [&](auto& of, auto&) { return WithoutRoot(files.ToNative(of)); }},
      {"change", Silent([&](auto& of, auto&) { files.ChDir(of); })},
      {"write", Silent([&](auto& of, auto& with) { files.WriteText(of, with); })},
      {"kill", Silent([&](auto& of, auto&) { files.Kill(of); })},
      {"move", Silent([&](auto& of, auto& with) { files.Name(of, with.empty() ? "d\\nuovo.txt" : with); })},
      {"move-to", Silent([&](auto& of, auto&) { files.Name("d\\a.txt", of); })}};
};

TEST_F(Disk, IsReadAndChangedAsTheCasesTell) {
  ExpectCases("tests/platform/files/disk.txt", [&](const std::string& given) {
    std::string outcomes;
    std::istringstream lines(given);
    for (std::string line; std::getline(lines, line);) {
      std::vector<Call> called;
      for (std::string word; calls.contains(word = line.substr(0, line.find(' ')));
           line.erase(0, word.size() + 1))
        called.push_back(calls.at(word));
      const std::size_t equals = line.find(" = ");
      const std::string with = equals == std::string::npos ? "" : line.substr(equals + 3);
      const std::string of = line.substr(0, equals);
      for (const Call& call : called) {
        std::string outcome;
        try {
          outcome = call(of, with);
        } catch (const RuntimeError& error) {
          outcome = std::to_string(static_cast<int>(error.Number()));
        }
        while (outcome.ends_with('\n')) outcome.pop_back();
        if (("\n" + outcomes).find("\n" + outcome + "\n") == std::string::npos && !outcome.empty())
          outcomes += outcome + "\n";
      }
    }
    return outcomes.empty() ? std::string("nothing") : outcomes.substr(0, outcomes.size() - 1);
  });
}

TEST_F(Disk, LinesAndBytesAreWholeWhereverTheBufferEnds) {
  for (const std::size_t length : {16382U, 16383U, 16384U, 50000U}) {
    const std::string line(length, 'x');
    disk.Write("t.txt", line + "\r\nfine\r\n");
    EXPECT_EQ(Lines("C:\\t.txt"), "\"" + line + "\" | \"fine\"");
  }
  const std::string bytes = std::string("\0\r\n\xFF", 4) + std::string(100000, 'x');
  disk.Write("foto.bin", bytes);
  EXPECT_EQ(files.ReadBytes("C:\\foto.bin"), bytes);
  for (const std::string& path : {std::string("d\\a\0b", 5), std::string("C:\\foto.bin\0x", 13)}) {
    EXPECT_FALSE(files.FileExists(path));
    EXPECT_THROW(files.WriteText(path, ""), RuntimeError);
  }
}

TEST_F(Disk, TextFilesAreRefusedWhenFewDescriptorsAreLeft) {
  disk.Write("t.txt", "testo\r\n");
  // The least that must stay free is 256, or half of a limit that is not much above.
  for (const auto& [most, free] : {std::pair<std::size_t, std::size_t>{600, 256}, {200, 100}}) {
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const rlimit few{most, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    std::vector<std::unique_ptr<InputFile>> kept;
    try {
      while (kept.size() < most) kept.push_back(files.OpenForInput("C:\\t.txt"));
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::TooManyFiles);
    }
    EXPECT_EQ(files.ReadBytes("C:\\t.txt"), "testo\r\n");
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_GT(kept.size(), most - free - 50);
    EXPECT_LE(kept.size(), most - free);
  }
}

}  // namespace
}  // namespace Morvane
