#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <regex>

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
  text << std::hex << std::uppercase;
  for (const char byte : bytes) {
    const int value = static_cast<unsigned char>(byte);
    value < 0x80 ? text << byte : text << '%' << value;
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

  std::string WithoutRoot(const std::string& text) const {
    return std::regex_replace(text, std::regex(disk.Path()), "");
  }
  static void Limit(int resource, rlim_t most) {
    rlimit limit{};
    ::getrlimit(resource, &limit);
    limit.rlim_cur = std::min(most, limit.rlim_max);
    ASSERT_EQ(::setrlimit(resource, &limit), 0);
  }
  // Executable's folder, data folder, home, what is shipped.
  std::string FindApp(const std::string& of) const {
    std::istringstream given(of);
    std::string places[4];
    for (std::string& place : places) {
      std::getline(given, place, ':');
      if (place.starts_with('/')) place = disk.Path() + place;
    }
    const AppFolder found = FindAppFolder({places[0], places[1], places[2], places[3]});
    return WithoutRoot(found.path + (found.problem.empty() ? "" : ": " + found.problem));
  }
  std::string Where(const std::string& path) const {
    const bool isFile = files.FileExists(path), isFolder = files.FolderExists(path);
    if (!isFile && !isFolder) return "nothing";
    return (isFile ? "file " : "folder ") + ReadableUtf8(WithoutRoot(files.ToNative(path)));
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

  using Text = const std::string&;
  std::string known, said;
  const std::map<std::string, std::function<void(Text of, Text with)>> calls = {
      {"folder", [&](Text of, Text) { fs::create_directories(disk.Path(of)); }},
      {"file", [&](Text of, Text with) { disk.Write(Bytes(of), Bytes(with)); }},
      {"keep", [&](Text, Text) { known = Everything(); }},
      {"changed", [&](Text, Text) { said = Everything() == known ? "no" : "yes"; }},
      {"huge", [&](Text of, Text with) { fs::resize_file(disk.Path(of), std::stoull(with)); }},
      {"fifo", [&](Text of, Text) { ::mkfifo(disk.Path(of).c_str(), 0600); }},
      {"link", [&](Text of, Text with) { fs::create_symlink(with, disk.Path(of)); }},
      {"mode", [&](Text of, Text with) { ::chmod(disk.Path(of).c_str(), std::stoi(with, nullptr, 8)); }},
      {"remove", [&](Text of, Text) { fs::remove_all(disk.Path(of)); }},
      // A disk that takes files of so many bytes only is as good as full.
      {"full", [](Text of, Text) { Limit(RLIMIT_FSIZE, of == "no" ? RLIM_INFINITY : std::stoul(of)); }},
      {"tree", [&](Text of, Text) { said = Readable(Everything(true, of)); }},
      {"app", [&](Text of, Text) { said = FindApp(of); }},
      {"where", [&](Text of, Text) { said = Where(of); }},
      {"told", [&](Text of, Text) { said = files.FromNative(disk.Path() + Bytes(of)); }},
      {"read", [&](Text of, Text) { said = files.ReadBytes(of); }},
      {"open", [&](Text of, Text) { said = Lines(of); }},
      {"list", [&](Text of, Text) { said = Joined(files.PlainFiles(of)); }},
      {"folders", [&](Text of, Text) { said = Joined(files.SubFolders(of)); }},
      {"all", [&](Text of, Text) { said = All(of); }},
      {"identity", [&](Text of, Text) { said = WithoutRoot(files.FolderIdentity(of)); }},
      {"change", [&](Text of, Text) { files.ChDir(of); }},
      {"write", [&](Text of, Text with) { files.WriteText(of, with); }},
      {"kill", [&](Text of, Text) { files.Kill(of); }},
      {"move", [&](Text of, Text with) { files.Name(of, with.empty() ? "d\\nuovo.txt" : with); }},
      {"move-to", [&](Text of, Text) { files.Name("d\\a.txt", of); }}};
};

TEST_F(Disk, IsReadAndChangedAsTheCasesTell) {
  ExpectCases("tests/platform/files/disk.txt", [&](const std::string& given) {
    std::vector<std::string> outcomes;
    const auto call = [&](Text word, Text of, Text with) {
      said.clear();
      try {
        calls.at(word)(of, with);
      } catch (const RuntimeError& error) {
        said = std::to_string(static_cast<int>(error.Number()));
      }
      while (said.ends_with('\n')) said.pop_back();
      if (!said.empty() && std::ranges::count(outcomes, said) == 0) outcomes.push_back(said);
    };
    std::istringstream lines(given);
    for (std::string line; std::getline(lines, line);) {
      const std::size_t equals = std::min(line.find(" = "), line.size());
      const std::string with = equals < line.size() ? line.substr(equals + 3) : "";
      std::string names = line.substr(0, equals);
      std::vector<std::string> words;
      for (std::string word; calls.contains(word = names.substr(0, names.find(' ')));
           names.erase(0, word.size() + 1))
        words.push_back(word);
      std::istringstream each(names + ",");
      for (std::string name; std::getline(each >> std::ws, name, ',');)
        for (const std::string& word : words) call(word, name, with);
    }
    std::string all;
    for (const std::string& outcome : outcomes) all += (all.empty() ? "" : "\n") + outcome;
    return all.empty() ? std::string("nothing") : all;
  });
}

TEST_F(Disk, LinesAreWholeWhereverTheBufferEnds) {
  for (const std::size_t length : {16382U, 16383U, 16384U, 50000U}) {
    const std::string line(length, 'x');
    disk.Write("t.txt", line + "\r\nfine\r\n");
    EXPECT_EQ(Lines("C:\\t.txt"), "\"" + line + "\" | \"fine\"");
  }
}

// The least that must stay free is 256, or half of a limit that is not much above.
TEST_F(Disk, TextFilesAreRefusedWhenFewDescriptorsAreLeft) {
  disk.Write("t.txt", "testo");
  for (const auto& [most, free] : {std::pair<std::size_t, std::size_t>{600, 256}, {200, 100}}) {
    Limit(RLIMIT_NOFILE, most);
    std::vector<std::unique_ptr<InputFile>> kept;
    EXPECT_THROW(while (kept.size() < most) kept.push_back(files.OpenForInput("C:\\t.txt")), RuntimeError);
    EXPECT_NEAR(static_cast<double>(kept.size()), static_cast<double>(most - free), 25);
    EXPECT_EQ(files.ReadBytes("C:\\t.txt"), "testo");
  }
  Limit(RLIMIT_NOFILE, RLIM_INFINITY);
}

}  // namespace
}  // namespace Morvane
