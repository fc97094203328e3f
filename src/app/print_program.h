#pragma once

#include "app/print_arguments.h"
#include "platform/files/file_system.h"

namespace Morvane {

enum class ExitCode { Done = 0, NotPrinted = 1, WrongUsage = 2 };

// Prints what the arguments say, in an application of the toolkit without a display. Pictures that cannot be
// read are told on standard error and left out: NotPrinted. RuntimeError when nothing can be printed.
ExitCode Print(const PrintArguments& arguments, const FileSystem& files);

}  // namespace Morvane
