#include "app/console.h"
#include "app/print_program.h"
#include "platform/qt/printing/qt_printer_device.h"

// What morvane-print becomes when it prints to a queue.
int main(int argc, char** argv) {
  using namespace Morvane;
  return RunPrintProgram(argc, argv, [](const PrintArguments& arguments) -> std::unique_ptr<PrinterDevice> {
    auto queue = std::make_unique<QtPrinterDevice>();
    queue->OnComplaint = Complain;
    if (!arguments.calibrated) queue->LeaveOutCalibration();
    if (!arguments.printer.empty()) queue->SelectPrinter(arguments.printer);
    return queue;
  });
}
