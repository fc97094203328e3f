#include "tests/support/test_machine.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/files/file_system.h"
#include "platform/runtime_error.h"

namespace Morvane {

namespace {

class SquarePicture : public Picture {
 public:
  double WidthTwips() const override { return 1500; }
  double HeightTwips() const override { return 1500; }
};

void FailWith(const std::string& complaint) {
  if (!complaint.empty()) throw RuntimeError(ErrorNumber::PrinterFailure, complaint);
}

}  // namespace

double EvenTextMetrics::Width(const Font& font, const std::string& text) const {
  const auto isCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
  return static_cast<double>(std::count_if(text.begin(), text.end(), isCharacter)) * font.size *
         kTwipsPerPoint * 0.5;
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
  const auto in = [&](const std::vector<std::string>& names) {
    return std::find(names.begin(), names.end(), family) != names.end();
  };
  return in(Names) && !in(NotForPrinting);
}

SheetSize RecordingPrinter::PortraitSheet() {
  Tell("PortraitSheet", ErrorNumber::PrinterFailure);
  FailWith(Broken);
  return Sheet;
}

PrintDialogAnswer RecordingPrinter::ShowDialog(const PrintDialogRequest& request, PageOrientation&) {
  Tell("ShowDialog", ErrorNumber::PrinterFailure);
  Dialogs.push_back(request);
  FailWith(DialogBroken);
  return TakeFront(Answers, "print dialog");
}

std::vector<PicturePtr> RecordingPrinter::SendPage(const DrawingList& page, PageOrientation orientation,
                                                   const std::string& title) {
  Tell("SendPage", ErrorNumber::PrinterFailure);
  FailWith(Broken);
  Jobs.push_back({page, orientation, title});
  return {};
}

PicturePtr SquarePictures::LoadPicture(const std::string&) const {
  return std::make_shared<SquarePicture>();
}

void RecordingLauncher::Shell(const std::string& program) {
  Tell("Shell", ErrorNumber::FileNotFound);
  Started.push_back(program);
  if (ShellFails) throw RuntimeError(ErrorNumber::FileNotFound, "File non trovato: " + program);
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

bool KeepInMemory() {
  constexpr const char* kDisk = "/dev/shm";
  return access(kDisk, W_OK) == 0 && setenv("TMPDIR", kDisk, 1) == 0;
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

void TemporaryFolder::MakeFolder(const std::string& name) const {
  std::filesystem::create_directories(Path(name));
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
  Root.MakeFolder("home/u/Scrivania");
  MakeFolder("C:\\Morvane");
}

void TestMachine::WriteFile(const std::string& windowsPath, const std::string& bytes) {
  MakeFolder(windowsPath.substr(0, windowsPath.rfind('\\')));
  Root.Write(Files->ToNative(windowsPath).substr(Root.Path().size() + 1), bytes);
}

void TestMachine::MakeFolder(const std::string& windowsPath) {
  std::string below = windowsPath.substr(2);
  std::replace(below.begin(), below.end(), '\\', '/');
  std::filesystem::create_directories(Files->ToNative(windowsPath.substr(0, 2)) + below);
}

}  // namespace Morvane
