#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/files/file_descriptor.h"

namespace Morvane {

// A file that is written under a hidden name beside its place, flushed to disk, and only then given its name:
// it appears whole or not at all. Removed again when it gets no name. Failures are RuntimeError.
class PendingFile {
 public:
  // `folder` is native; `path` is what an error names.
  PendingFile(const std::string& folder, std::string path);
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;
  ~PendingFile();

  // Gives it mode and owner of an older file, as far as the medium allows.
  void Resemble(const struct stat& older);
  void Write(std::string_view bytes);

  // Takes the place of what has this name in the folder.
  void Replace(const std::string& name);
  // FileAlreadyExists when the name is taken.
  void TakeFreeName(const std::string& name);

 private:
  void Flush();
  void SyncFolder();

  std::string folder_;
  std::string path_;
  std::string native_;  // under the hidden name; empty when it has its own
  FileDescriptor file_;
};

// Renames, never over something that exists. 0, or the errno.
int RenameToFreeName(const std::string& from, const std::string& to);

}  // namespace Morvane
