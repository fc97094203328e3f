#include "platform/qt/printing/print_service.h"

#include <cups/cups.h>

#include <cerrno>
#include <memory>

namespace Morvane {
namespace {

// Who may use the service is found out when something is printed.
const char* NoPassword(const char*, http_t*, const char*, const char*, void*) {
  return nullptr;
}

bool NobodyListens(int error) {
  return error == ECONNREFUSED || error == ENOENT;
}

}  // namespace

PrintService AskPrintService(std::chrono::milliseconds limit) {
  const auto milliseconds = static_cast<int>(limit.count());
  cupsSetServer(nullptr);
  errno = 0;
  const std::unique_ptr<http_t, void (*)(http_t*)> connection(
      httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, milliseconds, nullptr),
      httpClose);
  if (!connection) return NobodyListens(errno) ? PrintService::Absent : PrintService::Silent;
  httpSetTimeout(connection.get(), std::chrono::duration<double>(limit).count(), nullptr, nullptr);
  cupsSetPasswordCB2(NoPassword, nullptr);
  const std::unique_ptr<ipp_t, void (*)(ipp_t*)> answer(
      cupsDoRequest(connection.get(), ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/"), ippDelete);
  return answer ? PrintService::Answers : PrintService::Silent;
}

QString SilentServiceText() {
  return "Il servizio di stampa non risponde.";
}

}  // namespace Morvane
