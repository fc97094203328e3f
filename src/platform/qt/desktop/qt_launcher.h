#pragma once

#include <string>

#include "platform/files/file_system.h"
#include "platform/launcher.h"

namespace Morvane {

// Opens things with the desktop's own "xdg-open". What is opened is one argument of it, never read by a
// shell; a text with a line end or another control character is not opened at all.
class QtLauncher : public Launcher {
 public:
  // `programFolder` has the Windows form.
  QtLauncher(const FileSystem& files, std::string programFolder)
      : files_(files), programFolder_(std::move(programFolder)) {}

  void ShellExecute(const std::string& target) override;
  void Shell(const std::string& program) override;

 private:
  const FileSystem& files_;
  const std::string programFolder_;
};

}  // namespace Morvane
