#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/window_system.h"
#include "platform/runtime_error.h"
#include "windows/platform_services.h"

namespace Morvane {

// A device tells of each call before it does it; what is thrown then is the call's failure, which has a
// number that suits the device.
class Hooked {
 public:
  std::function<void(const std::string& call, ErrorNumber failure)> BeforeCall;

 protected:
  void Tell(const char* call, ErrorNumber failure) const {
    if (BeforeCall) BeforeCall(call, failure);
  }
};

// Windows without a toolkit, for what needs no more. Messages are kept, questions are answered with no.
class ScriptedWindows : public WindowSystem {
 public:
  std::vector<std::string> Boxes;
  std::string Folder;  // that is chosen

  MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string&) override {
    Boxes.push_back(text);
    return buttons == MsgBoxButtons::YesNo ? MsgBoxAnswer::No : MsgBoxAnswer::Cancel;
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override { return {}; }
  void PopupMenu(const std::vector<MenuItem>&) override {}
  std::string BrowseForFolder(const std::string&) override { return Folder; }

 protected:
  void ShowFirst(Form&) override { RunPosted(); }
  void RunModal(Form& form) override {
    if (form.Visible()) form.UnloadForm();
  }
  void ProcessToolkitEvents() override {}
  void WakeUp() override {}
  void Quit() override {}
};

// Text of one width for each byte, in exact proportion to the font's size.
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
  std::vector<Job> Jobs;
  std::vector<PrintDialogRequest> Dialogs;

  SheetSize PortraitSheet() override;
  PrintDialogAnswer ShowDialog(const PrintDialogRequest& request, PageOrientation& orientation) override;
  std::vector<PicturePtr> SendPage(const DrawingList& page, PageOrientation orientation,
                                   const std::string& title) override;
};

// No file holds a picture.
class NoPictures : public PictureLoader {
 public:
  PicturePtr LoadPicture(const std::string& path) const override {
    throw RuntimeError(ErrorNumber::InvalidPicture, path);
  }
};

class RecordingLauncher : public Launcher, public Hooked {
 public:
  std::vector<std::string> Opened;
  std::vector<std::string> Started;

  void ShellExecute(const std::string& target) override { Opened.push_back(target); }
  void Shell(const std::string& program) override;
};

class CannedHttp : public HttpClient, public Hooked {
 public:
  std::string Body;  // of each answer
  std::vector<std::string> Fetched;

  std::string OpenUrl(const std::string& url) override;
};

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
  NoPictures Pictures;
  RecordingLauncher Launches;
  CannedHttp Http;
  Platform platform;

  // Puts a file on the machine, folders too. Bytes as they are.
  void WriteFile(const std::string& windowsPath, const std::string& bytes);
};

}  // namespace Morvane
