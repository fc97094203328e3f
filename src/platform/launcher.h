#pragma once

#include <string>

namespace Morvane {

// Hands addresses, documents and programs to the system. No shell stands in between: whatever the text holds,
// it is one argument of one program.
class Launcher {
 public:
  virtual ~Launcher() = default;

  // Opens `target`, a web or mail address or the path of a document (drive and backslashes, or relative to
  // the program's folder), with its associated application. Never fails: whether something opened is not
  // reported.
  virtual void ShellExecute(const std::string& target) = 0;

  // Starts a program by its full path (drive and backslashes), without arguments. RuntimeError FileNotFound
  // when it is not there or does not start.
  virtual void Shell(const std::string& program) = 0;
};

}  // namespace Morvane
