#pragma once

#include <QMarginsF>
#include <QPageSize>
#include <QSizeF>

class QPrinter;

namespace Morvane {

// The paper that a printer is told to take, upright, and what it cannot reach of it, in mm.
struct PrinterSheet {
  QSizeF size;
  QMarginsF margins;
};

// Makes this sheet the printer's, upright, and tells what the printer's description says of it: to the
// hundredth of a millimetre, whatever a dialog did to the printer before. A size that the description does
// not have has the margins of its custom sizes.
PrinterSheet TakeSheet(QPrinter& printer, const QPageSize& sheet);

// The sheet that the queue is set to, by its maker, its administrator or the user; A4 where it tells none.
QPageSize OwnSheet(const QPrinter& printer);

// `wanted` where the queue has it or tells no sheets at all; else the queue's sheet of that size, of several
// the one that is called the same; else its own sheet.
QPageSize FittingSheet(const QPrinter& printer, const QPageSize& wanted);

}  // namespace Morvane
