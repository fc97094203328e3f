#pragma once

#include <QString>
#include <chrono>

namespace Morvane {

enum class PrintService { Answers, Absent, Silent };

// Asks the print service of this system for a word. May be called from any thread. A service that takes a
// connection and says nothing, or whose address swallows what is sent, is Silent after about `limit`; only
// looking up a host's name may take longer; so is one of another machine that can't be reached. Absent:
// nobody listens on this machine.
PrintService AskPrintService(std::chrono::milliseconds limit);

// The line that tells the user of a service that is silent.
QString SilentServiceText();

}  // namespace Morvane
