#pragma once

#include <string>

namespace Morvane {

// What a program left: its exit code, -1 when it was ended from outside, and its standard error.
struct ProgramRun {
  int exitCode = -1;
  std::string errors;
};

// Runs a command of the shell to its end; what it writes goes into `folder` first.
ProgramRun RunProgram(const std::string& command, const std::string& folder);

}  // namespace Morvane
