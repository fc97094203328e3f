#include "platform/qt/printing/spooler.h"

#include <cups/cups.h>

#include <QPrinter>
#include <utility>

#include "platform/qt/printing/toolkit_names.h"

namespace Morvane {
namespace {

// What a job is told or, where the value is empty, not told. What is told holds against a queue's own
// defaults. The toolkit rounds sheets to whole points: from the middle of the paper, where the spooler lays
// what is smaller or larger than that, an A5 would be 0.08 mm off.
constexpr std::pair<const char*, const char*> kTrueScale[] = {
    {"print-scaling", "none"}, {"number-up", "1"},       {"orientation-requested", "3"},
    {"position", "top-left"},  {"number-up-layout", ""}, {"page-ranges", ""},
    {"page-set", ""},          {"fit-to-page", ""},      {"fitplot", ""},
    {"scaling", ""},           {"natural-scaling", ""},
};

// Answers below this one tell that the spooler did what was asked.
constexpr ipp_status_t kFirstFailure = IPP_STATUS_REDIRECTION_OTHER_SITE;

constexpr int kReachMs = 2000;

bool HasQueue(const cups_dest_t* printer) {
  return printer != nullptr &&
         cupsGetOption("printer-uri-supported", printer->num_options, printer->options) != nullptr;
}

// An announcement outlives its printer, and the spooler waits a minute for one that is off.
bool IsReached(cups_dest_t& printer) {
  char resource[HTTP_MAX_URI];
  http_t* const connection = cupsConnectDest(&printer, CUPS_DEST_FLAGS_DEVICE, kReachMs, nullptr, resource,
                                             sizeof(resource), nullptr, nullptr);
  httpClose(connection);
  return connection != nullptr;
}

}  // namespace

bool TakeUpQueue(const QString& queue) {
  const QByteArray name = queue.section('/', 0, 0).toUtf8();
  cups_dest_t* printer = cupsGetNamedDest(CUPS_HTTP_DEFAULT, name, nullptr);
  if (HasQueue(printer)) {  // which the spooler may take away once it has answered
    cupsFreeDests(1, printer);
    printer = cupsGetNamedDest(CUPS_HTTP_DEFAULT, name, nullptr);
  }
  bool isNew = false;
  if (printer != nullptr && !HasQueue(printer) && IsReached(*printer)) {
    cups_dinfo_t* const info = cupsCopyDestInfo(CUPS_HTTP_DEFAULT, printer);  // makes it
    isNew = info != nullptr;
    cupsFreeDestInfo(info);
  }
  cupsFreeDests(1, printer);
  return isNew;
}

void KeepTrueScale(QPrinter& printer) {
  QStringList options = printer.printEngine()->property(ToolkitNames::kSpoolerOptions).toStringList();
  for (const auto& [name, value] : kTrueScale) {
    for (qsizetype at = options.size() - 2; at >= 0; at -= 2) {
      if (options[at] == name) options.remove(at, 2);
    }
    if (*value) options << name << value;
  }
  printer.printEngine()->setProperty(ToolkitNames::kSpoolerOptions, options);
}

QString LastSpoolerFailure() {
  if (cupsLastError() < kFirstFailure) return QString();
  const QString text = QString::fromUtf8(cupsLastErrorString());
  return text.isEmpty() ? QString("motivo sconosciuto") : text;
}

void AskForPasswordsOnTheTerminal() {
  cupsSetPasswordCB2(nullptr, nullptr);
}

}  // namespace Morvane
