#pragma once

#include <functional>
#include <string>

#include "app/print_arguments.h"
#include "platform/files/file_system.h"

namespace Morvane {

enum class ExitCode { Done = 0, NotPrinted = 1, WrongUsage = 2 };

// Tells the user, in a line, what went wrong.
using Complain = std::function<void(const std::string& text)>;

// Prints what the arguments say, in an application of the toolkit without a display. Pictures that cannot be
// read are complained of and left out: NotPrinted. RuntimeError when nothing can be printed.
ExitCode Print(const PrintArguments& arguments, const FileSystem& files, const Complain& complain);

}  // namespace Morvane
