#pragma once

#include <functional>
#include <string>

#include "platform/files/file_descriptor.h"

namespace Morvane {

// `native` is the path that is opened, `path` the one that an error names. What is no plain file is refused
// (PathFileAccess) without being opened, so that no pipe or device makes the program wait.
FileDescriptor OpenPlainFile(const std::string& native, const std::string& path);

// The whole file; refused (OutOfMemory) above 512 MB.
std::string ReadPlainFile(const std::string& native, const std::string& path);

// As FileSystem::BeforeCall.
using FileHook = std::function<void(const char* call, const std::string& path)>;

// A text file read line by line. Lines end at CR or CR LF; a lone LF is part of a line.
class InputFile {
 public:
  // As OpenPlainFile; refused, too, where few descriptors are left.
  InputFile(const std::string& native, std::string path, FileHook beforeCall);

  // The next line in UTF-8, read as Windows-1252, without its end; false at the end of the file.
  bool ReadLine(std::string& line);

 private:
  bool Fill();

  FileDescriptor file_;
  std::string path_;
  FileHook beforeCall_;
  std::string buffer_;
  std::size_t next_ = 0;
  bool atEnd_ = false;
};

}  // namespace Morvane
