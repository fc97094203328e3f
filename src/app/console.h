#pragma once

#include <fcntl.h>

#include <cstdio>
#include <string>

#include "platform/files/file_descriptor.h"

namespace Morvane {

// Tells on standard error what went wrong.
inline void Complain(const std::string& text) {
  std::fputs(("morvane-print: " + text + '\n').c_str(), stderr);
}

// While it lives, what the picture libraries write on standard error goes nowhere.
class PictureLibrariesSilenced {
 public:
  PictureLibrariesSilenced() {
    const FileDescriptor nowhere(::open("/dev/null", O_WRONLY | O_CLOEXEC));
    ::dup2(nowhere.Get(), STDERR_FILENO);
  }
  PictureLibrariesSilenced(const PictureLibrariesSilenced&) = delete;
  PictureLibrariesSilenced& operator=(const PictureLibrariesSilenced&) = delete;
  ~PictureLibrariesSilenced() { ::dup2(standardError_.Get(), STDERR_FILENO); }

 private:
  const FileDescriptor standardError_{::dup(STDERR_FILENO)};
};

}  // namespace Morvane
