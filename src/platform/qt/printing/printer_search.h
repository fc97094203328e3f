#pragma once

#include <chrono>
#include <future>
#include <memory>

#include "platform/qt/printing/print_service.h"

class QPrinter;

namespace Morvane {

// Makes the queue's own sheet that of its printer.
void TakeOwnSheet(QPrinter& printer);

struct FoundPrinters {
  PrintService service = PrintService::Silent;
  bool any = false;
  std::shared_ptr<QPrinter> printer;  // at the default queue, where one was wanted
};

// Looks for the printers of this system away from the thread of the windows: the toolkit waits for the
// service without a limit of its own.
class PrinterSearch {
 public:
  // Goes on with a search that is under way. `wantsPrinter`: the toolkit's printer is made, too, which takes
  // as long again.
  void Begin(bool wantsPrinter);
  // Whether the answer of a search that was begun can be taken at once.
  bool Ready() const {
    return answer_.valid() && answer_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
  }
  // Waits for the answer of the search that was begun, at most `limit`; one that takes longer stays under way
  // and counts as silence.
  FoundPrinters Answer(std::chrono::milliseconds limit);

 private:
  std::future<FoundPrinters> answer_;
};

}  // namespace Morvane
