#include "platform/qt/printing/print_service.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>

#include "platform/qt/printing/cups_library.h"

namespace Morvane {
namespace {

// Who may use the service is found out when something is printed.
const char* NoPassword(const char*, http_t*, const char*, const char*, void*) {
  return nullptr;
}

constexpr std::array kThisMachine = {"localhost", "::1", "[::1]"};

// By its socket or over the loopback network.
bool IsOfThisMachine(const QByteArray& server) {
  return server.startsWith('/') || server.startsWith("127.") ||
         std::find(kThisMachine.begin(), kThisMachine.end(), server) != kThisMachine.end();
}

}  // namespace

PrintService AskPrintService(std::chrono::milliseconds limit) {
  const CupsLibrary cups;
  if (!cups) return PrintService::Absent;
  const auto milliseconds = static_cast<int>(limit.count());
  const auto start = std::chrono::steady_clock::now();
  const std::unique_ptr<http_t, void (*)(http_t*)> connection(
      cups.httpConnect2(cups.cupsServer(), cups.ippPort(), nullptr, AF_UNSPEC, cups.cupsEncryption(), 1,
                        milliseconds, nullptr),
      cups.httpClose);
  // Where nobody listens on this machine the refusal comes at once; the library does not keep which it was.
  const bool waited = std::chrono::steady_clock::now() - start > limit / 2;
  if (!connection) {
    return !waited && IsOfThisMachine(cups.cupsServer()) ? PrintService::Absent : PrintService::Silent;
  }
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
