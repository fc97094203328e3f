#pragma once

#include <QString>
#include <QStringList>

#include "sight.h"

namespace Morvane {

// What came, went or became another, each on a line or some lines. What fits on a line is told whole; of
// settings, measures and menus what is new; of long texts and drawings what is new, how much there is and a
// digest of all.
QStringList Changes(const Sight& before, const Sight& after);
// What of a window's first sight no picture of the window tells: its texts, rows, choices and drawings.
QStringList FirstSight(const Sight& window);

// Told things but those that are usual; what is usual and missing is told as well.
QStringList BesideUsual(const QStringList& told, const QStringList& usual);
// Told things, the short ones beside each other.
QStringList Beside(const QStringList& told);
// In quotes where a blank at an end would not be seen; "-" for nothing.
QString Quoted(const QString& value);
// All lines of a drawing or a text.
QStringList InFull(const QStringList& lines);
// Items between bars, on as many lines as it takes.
QString Wrapped(const QString& head, const QStringList& items, const QString& indent = "    ");

}  // namespace Morvane
