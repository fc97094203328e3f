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

// What no picture of a window shows: its frame, its hands, its tips, what is read aloud.
QStringList UnseenIn(const Form& form);

}  // namespace Morvane
