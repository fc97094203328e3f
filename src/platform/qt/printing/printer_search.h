#pragma once

#include <QString>
#include <QStringList>
#include <chrono>
#include <future>

#include "platform/drawing/printers.h"

namespace Morvane {

// Absent: nobody listens on this machine. Silent: it takes a connection and says nothing, its address
// swallows what is sent, or it is another machine that can't be reached.
enum class PrintService { Answers, Absent, Silent };

struct FoundPrinters {
  PrintService service = PrintService::Silent;
  QStringList queues;
  QString queue;          // the default one, else the first; empty where there is none
  SheetSize sheet = kA4;  // the queue's own, upright
};

// Looks for the printers of this system away from the thread of the windows, since a service can be silent
// for minutes. Only values come back: the toolkit's printers, and the question for a password, belong to the
// thread that first asks for them.
class PrinterSearch {
 public:
  // Goes on with a search that is under way; an answer that nobody took is old.
  void Begin();
  // Whether the answer of a search that was begun can be taken at once.
  bool Ready() const;
  // Waits for the answer of the search that was begun: at most `limit` for the service's first word, and 20
  // seconds for its queues. A search that takes longer stays under way and counts as silence.
  FoundPrinters Answer(std::chrono::milliseconds limit);

 private:
  std::future<PrintService> service_;
  std::future<FoundPrinters> found_;
};

// The line that tells the user of a service that is silent.
QString SilentServiceText();

}  // namespace Morvane
