#pragma once

#include <QFont>
#include <QStringList>
#include <future>
#include <string>
#include <vector>

#include "platform/font.h"

namespace Morvane {

// A family that the program names, and the installed one that has its metrics.
struct FontStandIn {
  std::string family;
  std::string standIn;
};

// Each family once: the toolkit lists one of two makers twice, each time with the maker's name in brackets.
QStringList InstalledFamilies();

// The pairs whose own family is not installed and whose stand-in is; found once, when the application has
// been made.
const std::vector<FontStandIn>& UsableStandIns();

// Reads the machine's font rules while the caller does something else, such as making the application.
// Whoever asks for fonts waits for the answer before.
std::future<void> ReadFontRules();

// Makes the toolkit take the stand-ins for widgets. Called once, when the application has been made.
void InstallFontStandIns();

// Text of any size is laid out at this one and scaled, so that its proportions are the same on every device.
inline constexpr int kReferencePixels = 1000;

// The font at the reference size: no hinting, no kerning.
QFont ReferenceFont(const Font& font);

}  // namespace Morvane
