#pragma once

#include <dirent.h>

#include <memory>
#include <string>

#include "platform/files/file_descriptor.h"

namespace Morvane {

enum class EntryKind { File, Folder, Other };

// Goes through the names of one open folder, in the disk's order, without "." and "..". Names with a
// backslash are left out: no Windows path can tell them.
class FolderReader {
 public:
  // `path` is what an error names.
  FolderReader(FileDescriptor folder, std::string path);

  // Goes to the next name; false behind the last one. RuntimeError when the medium fails.
  bool Next();

  // The name as it is on the disk, valid until the next step, and as the program shows it.
  const char* RawName() const { return entry_->d_name; }
  std::string Name() const;
  bool IsHidden() const { return entry_->d_name[0] == '.'; }
  // What the name stands for, links followed. Asks the disk only where the folder itself does not tell.
  EntryKind Kind() const;
  // How many names were left out so far.
  std::size_t LeftOut() const { return leftOut_; }

 private:
  struct Closer {
    void operator()(DIR* folder) const { ::closedir(folder); }
  };

  std::string path_;
  std::unique_ptr<DIR, Closer> folder_;
  const dirent* entry_ = nullptr;
  std::size_t leftOut_ = 0;
};

}  // namespace Morvane
