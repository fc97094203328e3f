#include "platform/qt/printing/print_service.h"

#include <chrono>
#include <memory>

#include "platform/qt/printing/cups_library.h"

namespace Morvane {
namespace {

// Who may use the service is found out when something is printed.
const char* NoPassword(const char*, http_t*, const char*, const char*, void*) {
  return nullptr;
}

}  // namespace

PrintService AskPrintService(std::chrono::milliseconds limit) {
  const CupsLibrary cups;
  if (!cups) return PrintService::Absent;
  const auto milliseconds = static_cast<int>(limit.count());
  cups.cupsSetServer(nullptr);
  const auto start = std::chrono::steady_clock::now();
  const std::unique_ptr<http_t, void (*)(http_t*)> connection(
      cups.httpConnect2(cups.cupsServer(), cups.ippPort(), nullptr, AF_UNSPEC, cups.cupsEncryption(), 1,
                        milliseconds, nullptr),
      cups.httpClose);
  // Where nobody listens the refusal comes at once; which error is left behind differs with the kind of
  // address.
  const bool waited = std::chrono::steady_clock::now() - start > limit / 2;
  if (!connection) return waited ? PrintService::Silent : PrintService::Absent;
  cups.httpSetTimeout(connection.get(), std::chrono::duration<double>(limit).count(), nullptr, nullptr);
  cups.cupsSetPasswordCB2(NoPassword, nullptr);
  const std::unique_ptr<ipp_t, void (*)(ipp_t*)> answer(
      cups.cupsDoRequest(connection.get(), cups.ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/"), cups.ippDelete);
  return answer ? PrintService::Answers : PrintService::Silent;
}

QString SilentServiceText() {
  return "Il servizio di stampa non risponde.";
}

}  // namespace Morvane
