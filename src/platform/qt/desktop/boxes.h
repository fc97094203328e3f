#pragma once

#include <QWidget>
#include <string>

#include "platform/controls/window_system.h"

namespace Morvane {

// A modal message with Italian buttons; the text is shown as it stands, whatever it holds.
MsgBoxAnswer ShowMessage(QWidget* parent, const std::string& text, MsgBoxButtons buttons,
                         const std::string& title);

// A modal prompt for one line, the default text selected. The typed text, empty on Cancel.
std::string AskForLine(QWidget* parent, const std::string& prompt, const std::string& title,
                       const std::string& defaultText);

}  // namespace Morvane
