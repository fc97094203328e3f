#include "platform/qt/printing/printer_search.h"

#include <cups/cups.h>
#include <cups/pwg.h>

#include <QByteArray>
#include <algorithm>
#include <array>
#include <memory>
#include <thread>
#include <utility>

#include "platform/units.h"

namespace Morvane {
namespace {

constexpr std::chrono::milliseconds kWordLimit(1500);  // for one answer of the service
constexpr std::chrono::seconds kListLimit(20);  // for all its queues, which may be looked for in the network
constexpr double kUnitsPerMillimetre = 100;     // of the lengths that the library tells
constexpr std::array kThisMachine = {"localhost", "::1", "[::1]"};

using Connection = std::unique_ptr<http_t, void (*)(http_t*)>;

// Who may use the service is found out when something is printed.
const char* NoPassword(const char*, http_t*, const char*, const char*, void*) {
  return nullptr;
}

// By its socket or over the loopback network.
bool IsOfThisMachine(const QByteArray& server) {
  return server.startsWith('/') || server.startsWith("127.") ||
         std::find(kThisMachine.begin(), kThisMachine.end(), server) != kThisMachine.end();
}

// Only looking up a host's name may take longer than the limit.
Connection Connect() {
  return {httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                       static_cast<int>(kWordLimit.count()), nullptr),
          httpClose};
}

// Whether a service that can't be connected to is none, or silent. Where nobody listens on this machine the
// refusal comes at once; the library does not keep which it was.
PrintService WithoutConnection(std::chrono::steady_clock::duration waited) {
  const bool refused = waited < kWordLimit / 2;
  return refused && IsOfThisMachine(cupsServer()) ? PrintService::Absent : PrintService::Silent;
}

PrintService AskForAWord(http_t* connection) {
  httpSetTimeout(connection, std::chrono::duration<double>(kWordLimit).count(), nullptr, nullptr);
  cupsSetPasswordCB2(NoPassword, nullptr);
  const std::unique_ptr<ipp_t, void (*)(ipp_t*)> answer(
      cupsDoRequest(connection, ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/"), ippDelete);
  return answer ? PrintService::Answers : PrintService::Silent;
}

// The name of the sheet that a queue is set to: by the user with lpoptions, else by its administrator or
// maker.
QByteArray SheetName(http_t* connection, cups_dest_t& queue, cups_dinfo_t* info) {
  for (const char* option : {"PageSize", CUPS_MEDIA}) {
    if (const char* set = cupsGetOption(option, queue.num_options, queue.options)) return set;
  }
  ipp_attribute_t* const preset = cupsFindDestDefault(connection, &queue, info, CUPS_MEDIA);
  return preset ? ippGetString(preset, 0, nullptr) : "";
}

// A4 for a queue that tells none. The name is one of the standard or of the queue's description.
SheetSize OwnSheet(http_t* connection, cups_dest_t& queue) {
  const std::unique_ptr<cups_dinfo_t, void (*)(cups_dinfo_t*)> info(cupsCopyDestInfo(connection, &queue),
                                                                    cupsFreeDestInfo);
  const QByteArray name = info ? SheetName(connection, queue, info.get()) : QByteArray();
  const pwg_media_t* sheet = pwgMediaForPWG(name);
  if (sheet == nullptr) sheet = pwgMediaForPPD(name);
  if (sheet == nullptr) return kA4;
  return {sheet->width / kUnitsPerMillimetre * kTwipsPerMillimetre,
          sheet->length / kUnitsPerMillimetre * kTwipsPerMillimetre};
}

QString NameOf(const cups_dest_t& queue) {
  const QString name = QString::fromUtf8(queue.name);
  return queue.instance ? name + '/' + QString::fromUtf8(queue.instance) : name;
}

FoundPrinters FindQueue(http_t* connection) {
  httpSetTimeout(connection, std::chrono::duration<double>(kListLimit).count(), nullptr, nullptr);
  FoundPrinters found;
  found.service = PrintService::Answers;
  cups_dest_t* queues = nullptr;
  const int count = cupsGetDests2(connection, &queues);
  if (count > 0) {
    cups_dest_t* queue = cupsGetDest(nullptr, nullptr, count, queues);
    if (queue == nullptr) queue = queues;
    for (int i = 0; i < count; ++i) found.queues << NameOf(queues[i]);
    found.queue = NameOf(*queue);
    found.sheet = OwnSheet(connection, *queue);
  }
  cupsFreeDests(count, queues);
  return found;
}

void Search(std::promise<PrintService> service, std::promise<FoundPrinters> found) {
  const auto start = std::chrono::steady_clock::now();
  const Connection connection = Connect();
  const PrintService word = connection ? AskForAWord(connection.get())
                                       : WithoutConnection(std::chrono::steady_clock::now() - start);
  service.set_value(word);
  found.set_value(word == PrintService::Answers ? FindQueue(connection.get())
                                                : FoundPrinters{word, {}, {}, kA4});
}

}  // namespace

void PrinterSearch::Begin() {
  if (found_.valid() && !Ready()) return;
  std::promise<PrintService> service;
  std::promise<FoundPrinters> found;
  service_ = service.get_future();
  found_ = found.get_future();
  // Nobody waits for a search that the service holds up, not even at the end of the program.
  std::thread(Search, std::move(service), std::move(found)).detach();
}

bool PrinterSearch::Ready() const {
  return found_.valid() && found_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

FoundPrinters PrinterSearch::Answer(std::chrono::milliseconds limit) {
  if (service_.wait_for(limit) != std::future_status::ready) return {};
  if (found_.wait_for(kListLimit) != std::future_status::ready) return {};
  return found_.get();
}

QString SilentServiceText() {
  return "Il servizio di stampa non risponde.";
}

}  // namespace Morvane
