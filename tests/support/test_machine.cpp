#include "tests/support/test_machine.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/files/file_system.h"

namespace Morvane {

double EvenTextMetrics::Width(const Font& font, const std::string& text) const {
  return static_cast<double>(text.size()) * font.size * kTwipsPerPoint * 0.5;
}

double EvenTextMetrics::LineHeight(const Font& font) const {
  return font.size * kTwipsPerPoint * 1.15;
}

std::vector<std::string> ListedFonts::Families() const {
  Tell("Families", ErrorNumber::OutOfMemory);
  return Names;
}

bool ListedFonts::CanPrint(const std::string& family) const {
  Tell("CanPrint", ErrorNumber::InvalidPropertyValue);
  return std::ranges::count(Names, family) > std::ranges::count(NotForPrinting, family);
}

SheetSize RecordingPrinter::PortraitSheet() {
  Tell("PortraitSheet", ErrorNumber::PrinterFailure);
  return {11905.5, 16837.8};  // A4
}

PrintDialogAnswer RecordingPrinter::ShowDialog(const PrintDialogRequest& request, PageOrientation&) {
  Dialogs.push_back(request);
  Tell("ShowDialog", ErrorNumber::PrinterFailure);
  if (Answers.empty()) throw std::logic_error("unexpected print dialog");
  const PrintDialogAnswer answer = Answers.front();
  Answers.pop_front();
  return answer;
}

std::vector<PicturePtr> RecordingPrinter::SendPage(const DrawingList& page, PageOrientation orientation,
                                                   const std::string& title) {
  Tell("SendPage", ErrorNumber::PrinterFailure);
  Jobs.push_back({page, orientation, title});
  return {};
}

void RecordingLauncher::Shell(const std::string& program) {
  Started.push_back(program);
  Tell("Shell", ErrorNumber::FileNotFound);
}

// A request that fails has an empty body.
std::string CannedHttp::OpenUrl(const std::string& url) {
  try {
    Tell("OpenUrl", ErrorNumber::PathNotFound);
  } catch (const RuntimeError&) {
    return {};
  }
  Fetched.push_back(url);
  return Body;
}

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "morvane-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void TemporaryFolder::Write(const std::string& name, const std::string& bytes) const {
  std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
  std::ofstream file(Path(name), std::ios::binary);
  file << bytes;
  if (!file) throw std::runtime_error("cannot write " + name);
}

std::string TemporaryFolder::Read(const std::string& name) const {
  std::ifstream file(Path(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

ProgramRun RunProgram(const std::string& command, const TemporaryFolder& folder) {
  const int status = std::system((command + " 2>'" + folder.Path("errors") + "'").c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.Read("errors")};
}

TestMachine::TestMachine(const UserHome& home)
    : Files(std::make_unique<FileSystem>(
          Root.Path(), MountTable{home, Root.Path() + "/mountinfo", Root.Path() + "/by-label"},
          Root.Path() + "/home/u/Scrivania")),
      ThePrinter(Device, Metrics, Fonts),
      platform{Windows, TheScreen,  *Files,   Pictures, Metrics,
               Fonts,   ThePrinter, Launches, Http,     AppInfo{.path = "C:\\Morvane"}} {
  std::filesystem::create_directories(Root.Path("home/u/Scrivania"));
  std::filesystem::create_directories(Files->ToNative("C:") + "/Morvane");
}

void TestMachine::WriteFile(const std::string& windowsPath, const std::string& bytes) {
  std::string native = Files->ToNative(windowsPath.substr(0, 2)) + windowsPath.substr(2);
  std::replace(native.begin(), native.end(), '\\', '/');
  Root.Write(native.substr(Root.Path().size() + 1), bytes);
}

}  // namespace Morvane
