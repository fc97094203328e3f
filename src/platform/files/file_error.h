#pragma once

#include <string>

#include "platform/runtime_error.h"

namespace Morvane {

// The run-time error with the user's text for it; `path` is named in the text.
RuntimeError FileError(ErrorNumber number, const std::string& path);

// The run-time error that a system call's errno stands for.
RuntimeError SystemFileError(int systemError, const std::string& path);

}  // namespace Morvane
