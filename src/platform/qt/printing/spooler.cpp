#include "platform/qt/printing/spooler.h"

#include <QLibrary>
#include <QPrintEngine>
#include <QPrinter>

namespace Morvane {
namespace {

// The toolkit's list of names and values for the spooler, known to its own print dialog only.
constexpr auto kSpoolerOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

// Answers of the spooler below this number tell that it did what was asked.
constexpr int kFirstFailure = 0x0100;

}  // namespace

void KeepTrueScale(QPrinter& printer) {
  const QString name = "print-scaling";
  QStringList options = printer.printEngine()->property(kSpoolerOptions).toStringList();
  for (qsizetype at = options.size() - 2; at >= 0; at -= 2) {
    if (options[at] == name) options.remove(at, 2);
  }
  options << name << "none";
  printer.printEngine()->setProperty(kSpoolerOptions, options);
}

QString LastSpoolerFailure() {
  using LastError = int (*)();
  using LastErrorText = const char* (*)();
  QLibrary cups("cups", 2);
  const auto lastError = reinterpret_cast<LastError>(cups.resolve("cupsLastError"));
  const auto lastErrorText = reinterpret_cast<LastErrorText>(cups.resolve("cupsLastErrorString"));
  if (!lastError || !lastErrorText || lastError() < kFirstFailure) return QString();
  const QString text = QString::fromUtf8(lastErrorText());
  return text.isEmpty() ? QString("lavoro rifiutato") : text;
}

}  // namespace Morvane
