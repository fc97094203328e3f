#pragma once

#include <array>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {

// Counts what the program asks of its machine and lets chosen calls fail.
class Faults {
 public:
  static constexpr const char* kText = "Guasto di prova";

  int FirstToFail = 0;   // counted from 1; 0: none
  bool Lasting = false;  // every later call fails, too
  std::function<std::string()> TopWindow;

  int Calls() const { return calls_; }
  // The first call that failed, as "Name C:\a.jpg @frmAbout"; empty when none did.
  const std::string& Failed() const { return failed_; }

  void Call(const std::string& what, ErrorNumber number) {
    ++calls_;
    const bool fails = Lasting ? calls_ >= FirstToFail : calls_ == FirstToFail;
    if (FirstToFail == 0 || !fails) return;
    if (failed_.empty()) failed_ = what + " @" + TopWindow();
    throw RuntimeError(number, kText);
  }
  void FileCall(const std::string& what) {
    constexpr std::array kNumbers = {ErrorNumber::PermissionDenied, ErrorNumber::DiskNotReady,
                                     ErrorNumber::PathFileAccess};
    Call(what, kNumbers[static_cast<std::size_t>(FirstToFail) % kNumbers.size()]);
  }

 private:
  int calls_ = 0;
  std::string failed_;
};

class FaultyInput : public InputFile {
 public:
  FaultyInput(std::unique_ptr<InputFile> file, Faults& faults) : file_(std::move(file)), faults_(faults) {}

  bool ReadLine(std::string& line) override {
    faults_.FileCall("ReadLine");
    return file_->ReadLine(line);
  }

 private:
  std::unique_ptr<InputFile> file_;
  Faults& faults_;
};

class FaultyFiles : public FileSystem {
 public:
  FaultyFiles(TestMachine& machine, Faults& faults)
      : machine_(machine), files_(*machine.Files), faults_(faults) {}

  std::set<std::string> Written;  // every whole text that was to become a file

  std::vector<std::string> DriveRoots() const override { return Try("DriveRoots").DriveRoots(); }
  DriveType TypeOfDrive(const std::string& drive) const override {
    return Try("TypeOfDrive", drive).TypeOfDrive(drive);
  }
  std::string VolumeLabel(const std::string& root) const override {
    return Try("VolumeLabel", root).VolumeLabel(root);
  }
  std::vector<std::string> PlainFiles(const std::string& folder) const override {
    return Try("PlainFiles", folder).PlainFiles(folder);
  }
  std::vector<std::string> SubFolders(const std::string& folder) const override {
    return Try("SubFolders", folder).SubFolders(folder);
  }
  std::string FirstSubFolder(const std::string& folder,
                             const std::function<bool(const std::string&)>& accept) const override {
    return Try("FirstSubFolder", folder).FirstSubFolder(folder, accept);
  }
  FolderEntries ReadFolder(const std::string& folder) const override {
    return Try("ReadFolder", folder).ReadFolder(folder);
  }
  std::string FolderIdentity(const std::string& folder) const override {
    return Try("FolderIdentity", folder).FolderIdentity(folder);
  }
  bool FileExists(const std::string& path) const override { return Try("FileExists", path).FileExists(path); }
  bool FolderExists(const std::string& path) const override {
    return Try("FolderExists", path).FolderExists(path);
  }
  std::unique_ptr<InputFile> OpenForInput(const std::string& path) const override {
    return std::make_unique<FaultyInput>(Try("OpenForInput", path).OpenForInput(path), faults_);
  }
  std::string ReadBytes(const std::string& path) const override {
    return Try("ReadBytes", path).ReadBytes(path);
  }
  void WriteText(const std::string& path, const std::string& utf8) override {
    Written.insert(utf8);
    Try("WriteText", path);
    machine_.WriteFile(path, utf8);  // without the wait for the disk
  }
  void Kill(const std::string& path) override { Try("Kill", path).Kill(path); }
  void Name(const std::string& from, const std::string& to) override { Try("Name", from).Name(from, to); }
  void ChDir(const std::string& folder) override { Try("ChDir", folder); }
  std::string DesktopFolder() const override { return Try("DesktopFolder").DesktopFolder(); }
  std::string ToNative(const std::string& path) const override {
    return Try("ToNative", path).ToNative(path);
  }
  std::string FromNative(const std::string& path) const override {
    return Try("FromNative", path).FromNative(path);
  }

 private:
  FileSystem& Try(const std::string& operation, const std::string& path = {}) const {
    faults_.FileCall(operation + " " + path);
    return files_;
  }

  TestMachine& machine_;
  FileSystem& files_;
  Faults& faults_;
};

class FaultyPictures : public PictureLoader {
 public:
  FaultyPictures(PictureLoader& pictures, Faults& faults) : pictures_(pictures), faults_(faults) {}

  mutable std::set<PicturePtr> Loaded;

  PicturePtr LoadPicture(const std::string& path) const override {
    faults_.Call("LoadPicture", ErrorNumber::InvalidPicture);
    return *Loaded.insert(pictures_.LoadPicture(path)).first;
  }

 private:
  PictureLoader& pictures_;
  Faults& faults_;
};

// Its user prints two copies whenever asked, upright where that is the user's choice.
class FaultyPrinter : public PrinterDevice {
 public:
  FaultyPrinter(RecordingPrinter& printer, Faults& faults) : printer_(printer), faults_(faults) {}

  SheetSize PortraitSheet() override {
    faults_.Call("PortraitSheet", ErrorNumber::PrinterFailure);
    return printer_.PortraitSheet();
  }
  PrintDialogAnswer ShowDialog(const PrintDialogRequest& request, PageOrientation& orientation) override {
    faults_.Call("ShowDialog", ErrorNumber::PrinterFailure);
    orientation = PageOrientation::Portrait;
    printer_.Answers = {{.accepted = true, .copies = 2}};
    return printer_.ShowDialog(request, orientation);
  }
  void SendPage(const DrawingList& page, PageOrientation orientation, const std::string& title) override {
    faults_.Call("SendPage", ErrorNumber::PrinterFailure);
    printer_.SendPage(page, orientation, title);
  }

 private:
  RecordingPrinter& printer_;
  Faults& faults_;
};

// Of the launches only a program's start can fail.
class FaultyLauncher : public Launcher {
 public:
  explicit FaultyLauncher(Faults& faults) : faults_(faults) {}

  void ShellExecute(const std::string&) override {}
  void Shell(const std::string&) override { faults_.Call("Shell", ErrorNumber::FileNotFound); }

 private:
  Faults& faults_;
};

// A request that fails has an empty body.
class FaultyHttp : public HttpClient {
 public:
  explicit FaultyHttp(Faults& faults) : faults_(faults) {}

  std::string OpenUrl(const std::string&) override {
    try {
      faults_.Call("OpenUrl", ErrorNumber::PathNotFound);
    } catch (const RuntimeError&) {
      return {};
    }
    return "260\n";
  }

 private:
  Faults& faults_;
};

class FaultyFonts : public FontCatalog {
 public:
  FaultyFonts(const FontCatalog& fonts, Faults& faults) : fonts_(fonts), faults_(faults) {}

  std::vector<std::string> Families() const override {
    faults_.Call("Families", ErrorNumber::OutOfMemory);
    return fonts_.Families();
  }
  bool CanPrint(const std::string& family) const override {
    faults_.Call("CanPrint", ErrorNumber::InvalidPropertyValue);
    return fonts_.CanPrint(family);
  }

 private:
  const FontCatalog& fonts_;
  Faults& faults_;
};

}  // namespace Morvane
