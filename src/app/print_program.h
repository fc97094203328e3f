#pragma once

#include <functional>
#include <memory>

#include "app/print_arguments.h"
#include "platform/drawing/printer.h"

namespace Morvane {

// Finds the printer that the arguments name. RuntimeError when there is none.
using QueueOpener = std::function<std::unique_ptr<PrinterDevice>(const PrintArguments&)>;

// Prints what the arguments say; what goes wrong is told on standard error. The result is the exit code.
// Without an opener this is the program of PDF files, which becomes morvane-print-queue where a queue is
// asked for: the toolkit's libraries for printers would take a PDF file longer to load than to write.
int RunPrintProgram(int argc, char** argv, const QueueOpener& openQueue);

}  // namespace Morvane
