#include "platform/qt/printing/spooler.h"

#include <cups/cups.h>

#include <QPrinter>
#include <utility>

#include "platform/qt/printing/toolkit_names.h"

namespace Morvane {
namespace {

// What a job is told or, where the value is empty, not told. What is told holds against a queue's own
// defaults.
constexpr std::pair<const char*, const char*> kTrueScale[] = {
    {"print-scaling", "none"}, {"number-up", "1"},  {"orientation-requested", "3"},
    {"number-up-layout", ""},  {"page-ranges", ""}, {"page-set", ""},
    {"fit-to-page", ""},       {"fitplot", ""},     {"scaling", ""},
    {"natural-scaling", ""},
};

// Answers below this one tell that the spooler did what was asked.
constexpr ipp_status_t kFirstFailure = IPP_STATUS_REDIRECTION_OTHER_SITE;

}  // namespace

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
