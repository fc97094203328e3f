#include "platform/qt/printing/printer_search.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <thread>

namespace Morvane {
namespace {

constexpr std::chrono::milliseconds kServiceLimit(1500);

FoundPrinters Search(bool wantsPrinter) {
  FoundPrinters found;
  found.service = AskPrintService(kServiceLimit);
  if (found.service != PrintService::Answers) return found;
  found.any = !QPrinterInfo::availablePrinterNames().isEmpty();
  if (!found.any || !wantsPrinter) return found;
  found.printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  TakeOwnSheet(*found.printer);
  return found;
}

}  // namespace

// The toolkit takes A4 wherever the queue has it, whatever the queue's own sheet is.
void TakeOwnSheet(QPrinter& printer) {
  printer.setPageSize(QPrinterInfo(printer).defaultPageSize());
}

void PrinterSearch::Begin(bool wantsPrinter) {
  if (answer_.valid()) return;
  std::packaged_task<FoundPrinters()> search([wantsPrinter] { return Search(wantsPrinter); });
  answer_ = search.get_future();
  // Nobody waits for a search that the service holds up, not even at the end of the program.
  std::thread(std::move(search)).detach();
}

FoundPrinters PrinterSearch::Answer(std::chrono::milliseconds limit) {
  if (answer_.wait_for(limit) != std::future_status::ready) return {};
  return answer_.get();
}

}  // namespace Morvane
