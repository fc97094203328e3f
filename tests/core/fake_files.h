#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/runtime_error.h"

namespace Morvane {

// A text file in memory, with the line ends of the real one: CR or CR LF, and the last line may have none.
class TextInput : public InputFile {
 public:
  explicit TextInput(std::string text) : text_(std::move(text)) {}

  bool ReadLine(std::string& line) override {
    if (at_ >= text_.size()) return false;
    const std::size_t end = text_.find('\r', at_);
    line = text_.substr(at_, end == std::string::npos ? end : end - at_);
    at_ = end == std::string::npos ? text_.size() : end + 1;
    if (at_ < text_.size() && text_[at_] == '\n') ++at_;
    return true;
  }

 private:
  std::string text_;
  std::size_t at_ = 0;
};

// The text files of one folder; everything else of a file system is empty or refused.
class FakeFiles : public FileSystem {
 public:
  std::map<std::string, std::string> texts;
  bool refuseOpen = false;
  bool refuseWrite = false;

  bool FileExists(const std::string& path) const override { return texts.count(path) != 0; }
  std::unique_ptr<InputFile> OpenForInput(const std::string& path) const override {
    if (refuseOpen) throw Refusal();
    return std::make_unique<TextInput>(texts.at(path));
  }
  void WriteText(const std::string& path, const std::string& utf8) override {
    if (refuseWrite) throw Refusal();
    texts[path] = utf8;
  }

  std::vector<std::string> DriveRoots() const override { return {}; }
  DriveType TypeOfDrive(const std::string&) const override { return DriveType::Unknown; }
  std::string VolumeLabel(const std::string&) const override { return {}; }
  void ChDir(const std::string&) override {}
  std::vector<std::string> PlainFiles(const std::string&) const override { return {}; }
  std::vector<std::string> SubFolders(const std::string&) const override { return {}; }
  std::string FirstSubFolder(const std::string&,
                             const std::function<bool(const std::string&)>&) const override {
    return {};
  }
  FolderEntries ReadFolder(const std::string&) const override { return {}; }
  bool FolderExists(const std::string&) const override { return false; }
  std::string ReadBytes(const std::string&) const override { throw Refusal(); }
  void Kill(const std::string&) override { throw Refusal(); }
  void Name(const std::string&, const std::string&) override { throw Refusal(); }
  std::string DesktopFolder() const override { return {}; }
  std::string ToNative(const std::string&) const override { return {}; }
  std::string FromNative(const std::string&) const override { return {}; }

 private:
  static RuntimeError Refusal() {
    return RuntimeError(ErrorNumber::PathFileAccess, "Accesso al file negato.");
  }
};

}  // namespace Morvane
