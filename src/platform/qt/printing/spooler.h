#pragma once

#include <QStringList>

class QPrinter;

namespace Morvane {

// Sees to it that the spooler has a queue for a printer that it has only heard of in the network; such a
// queue it takes away a minute after its last use. Without one the toolkit knows neither the printer's sheets
// nor what it reaches of them. True when there was none, and now is; a printer that is off gets none.
bool TakeUpQueue(const QString& queue);

// Sees to it that the spooler prints the sheet as it is and whole: neither fitted to the paper nor filling
// it, nor turned, nor several to a side. Other options that the user chose stay.
void KeepTrueScale(QPrinter& printer);

// What the spooler answered to the last job that this thread sent; empty when it took the job. The toolkit
// itself doesn't tell.
QString LastSpoolerFailure();

// For a program without windows, once the toolkit was asked for printers, which would ask in a window.
// Without a terminal a queue that wants a login refuses.
void AskForPasswordsOnTheTerminal();

}  // namespace Morvane
