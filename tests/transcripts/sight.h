#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <map>

#include "platform/controls/form.h"
#include "tests/support/test_machine.h"

namespace Morvane {

// What can be seen, by name: the lines of a text box, a list, a drawing, a file.
using Sight = std::map<QString, QStringList>;

// A window on the screen: what each control shows and where it lies, and what has the keyboard.
Sight LookAt(const Form& form);
// The files below the machine's drive, and the pointer.
Sight LookAround(const TestMachine& machine);

// Where the Tab key leads, one stop after the other.
QStringList StopsOf(const QWidget& window);
// What is read aloud to who cannot see, where it is not the toolkit's own.
QStringList SpokenIn(const QWidget& window);

// What came, went or became another, a line or some lines each; long texts by what is new or gone in them.
QStringList Changes(const Sight& before, const Sight& after);
// What of a window's first sight no picture of the window tells: its texts, rows, choices and drawings.
QStringList FirstSight(const Sight& window);

}  // namespace Morvane
