#include "tests/support/test_machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/files/local_file_system.h"
#include "platform/runtime_error.h"

namespace Morvane {

namespace {

class SizedPicture : public Picture {
 public:
  SizedPicture(double width, double height) : width_(width), height_(height) {}
  double WidthTwips() const override { return width_; }
  double HeightTwips() const override { return height_; }

 private:
  double width_;
  double height_;
};

}  // namespace

double EvenTextMetrics::Width(const Font& font, const std::string& text) const {
  const auto isCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
  return static_cast<double>(std::count_if(text.begin(), text.end(), isCharacter)) * font.size *
         kTwipsPerPoint * 0.5;
}

double EvenTextMetrics::LineHeight(const Font& font) const {
  return font.size * kTwipsPerPoint * 1.15;
}

bool ListedFonts::CanPrint(const std::string& family) const {
  const auto in = [&](const std::vector<std::string>& names) {
    return std::find(names.begin(), names.end(), family) != names.end();
  };
  return in(Names) && !in(NotForPrinting);
}

SheetSize RecordingPrinter::PortraitSheet() {
  if (Broken) throw RuntimeError(ErrorNumber::PrinterFailure, "La stampante non risponde.");
  return Sheet;
}

PrintDialogAnswer RecordingPrinter::ShowDialog(const PrintDialogRequest& request, PageOrientation&) {
  Dialogs.push_back(request);
  if (DialogFails) throw RuntimeError(ErrorNumber::PrinterFailure, "La stampante non risponde.");
  if (Answers.empty()) {
    ADD_FAILURE() << "unexpected print dialog";
    return {};
  }
  const PrintDialogAnswer answer = Answers.front();
  Answers.pop_front();
  return answer;
}

void RecordingPrinter::SendPage(const DrawingList& page, PageOrientation orientation,
                                const std::string& title) {
  if (Broken) throw RuntimeError(ErrorNumber::PrinterFailure, "La stampante non risponde.");
  Jobs.push_back({page, orientation, title});
}

PicturePtr TextPictures::LoadPicture(const std::string& path) const {
  std::istringstream bytes(files_.ReadBytes(path));
  std::string magic;
  double width = 0;
  double height = 0;
  if (!(bytes >> magic >> width >> height) || magic != "PICTURE") {
    throw RuntimeError(ErrorNumber::InvalidPicture, "L'immagine non può essere letta: " + path);
  }
  Loaded.push_back(path);
  return std::make_shared<SizedPicture>(width, height);
}

void RecordingLauncher::Shell(const std::string& program) {
  Started.push_back(program);
  if (ShellFails) throw RuntimeError(ErrorNumber::FileNotFound, "File non trovato: " + program);
}

std::string CannedHttp::OpenUrl(const std::string& url) {
  Fetched.push_back(url);
  const auto body = Bodies.find(url);
  return body == Bodies.end() ? std::string() : body->second;
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

TestMachine::TestMachine()
    : Files(std::make_unique<LocalFileSystem>(
          Root.Path(), MountTable{Root.Path() + "/mountinfo", Root.Path() + "/by-label"},
          Root.Path() + "/home/u/Scrivania")),
      ThePrinter(Device, Metrics, Fonts),
      Pictures(*Files),
      platform{Windows, TheScreen,  *Files,   Pictures, Metrics,
               Fonts,   ThePrinter, Launches, Http,     AppInfo{.path = "C:\\Morvane"}} {
  MakeFolder("C:\\Morvane");
  MakeFolder("C:\\home\\u\\Scrivania");
}

void TestMachine::WriteFile(const std::string& windowsPath, const std::string& bytes) {
  MakeFolder(windowsPath.substr(0, windowsPath.rfind('\\')));
  std::ofstream file(Files->ToNative(windowsPath), std::ios::binary);
  file << bytes;
  if (!file) throw std::runtime_error("cannot write " + windowsPath);
}

std::string TestMachine::ReadFile(const std::string& windowsPath) const {
  return Files->ReadBytes(windowsPath);
}

void TestMachine::MakeFolder(const std::string& windowsPath) {
  std::string relative = windowsPath.substr(2);
  std::replace(relative.begin(), relative.end(), '\\', '/');
  std::filesystem::create_directories(Root.Path() + relative);
}

void TestMachine::WritePicture(const std::string& windowsPath, int widthTwips, int heightTwips) {
  WriteFile(windowsPath, "PICTURE " + std::to_string(widthTwips) + " " + std::to_string(heightTwips));
}

}  // namespace Morvane
