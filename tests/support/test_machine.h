#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "tests/support/scripted_windows.h"
#include "windows/platform_services.h"

namespace Morvane {

// A device tells of each call before it is made; what is thrown then is the call's failure, which has a
// number that suits the device.
class Hooked {
 public:
  std::function<void(const std::string& call, ErrorNumber failure)> BeforeCall;

 protected:
  void Tell(const char* call, ErrorNumber failure) const {
    if (BeforeCall) BeforeCall(call, failure);
  }
};

// Text of one width for each character, in exact proportion to the font's size.
class EvenTextMetrics : public TextMetrics {
 public:
  double Width(const Font& font, const std::string& text) const override;
  double LineHeight(const Font& font) const override;
};

class ListedFonts : public FontCatalog, public Hooked {
 public:
  std::vector<std::string> Names = {"Verdana", "Arial", "Tahoma"};
  std::vector<std::string> NotForPrinting;

  std::vector<std::string> Families() const override;
  bool CanPrint(const std::string& family) const override;
};

// A printer that keeps its jobs.
class RecordingPrinter : public Printers, public Hooked {
 public:
  struct Job {
    DrawingList page;
    PageOrientation orientation;
    std::string title;
  };

  std::deque<PrintDialogAnswer> Answers;
  SheetSize Sheet = {11905.5, 16837.8};  // A4
  std::string Broken, DialogBroken;      // what it complains of
  std::vector<Job> Jobs;
  std::vector<PrintDialogRequest> Dialogs;

  SheetSize PortraitSheet() override;
  PrintDialogAnswer ShowDialog(const PrintDialogRequest& request, PageOrientation& orientation) override;
  std::vector<PicturePtr> SendPage(const DrawingList& page, PageOrientation orientation,
                                   const std::string& title) override;
};

// Whatever a file holds is a picture.
class SquarePictures : public PictureLoader {
 public:
  PicturePtr LoadPicture(const std::string& path) const override;
};

class RecordingLauncher : public Launcher, public Hooked {
 public:
  std::vector<std::string> Opened;
  std::vector<std::string> Started;
  bool ShellFails = false;

  void ShellExecute(const std::string& target) override { Opened.push_back(target); }
  void Shell(const std::string& program) override;
};

class CannedHttp : public HttpClient, public Hooked {
 public:
  std::string Body;  // of each answer
  std::vector<std::string> Fetched;

  std::string OpenUrl(const std::string& url) override;
};

// Temporary folders lie in memory from now on, where the machine has a disk of that kind.
bool KeepInMemory();

// A folder in the system's temporary folder, removed with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& Path() const { return path_; }
  std::string Path(const std::string& name) const { return path_ + "/" + name; }
  void Write(const std::string& name, const std::string& bytes) const;  // folders too
  std::string Read(const std::string& name) const;
  void MakeFolder(const std::string& name) const;

 private:
  std::string path_;
};

// What a program left: its exit code, -1 when it was ended from outside, and its standard error.
struct ProgramRun {
  int exitCode = -1;
  std::string errors;
};

// Runs a command of the shell to its end; what it writes goes into `folder` first.
ProgramRun RunProgram(const std::string& command, const TemporaryFolder& folder);

// A whole machine for a test: real files below a temporary folder, which is its drive C: unless the user has
// a home, the program's folder in C:\Morvane; windows, printer, launches and network played from a script.
class TestMachine {
 public:
  explicit TestMachine(const UserHome& home = {});

  TemporaryFolder Root;
  std::unique_ptr<FileSystem> Files;
  ScriptedWindows Windows;
  Screen TheScreen;
  EvenTextMetrics Metrics;
  ListedFonts Fonts;
  RecordingPrinter Device;
  Printer ThePrinter;
  SquarePictures Pictures;
  RecordingLauncher Launches;
  CannedHttp Http;
  Platform platform;

  // Puts a file on the machine, folders too. Bytes as they are.
  void WriteFile(const std::string& windowsPath, const std::string& bytes);
  void MakeFolder(const std::string& windowsPath);
};

}  // namespace Morvane
