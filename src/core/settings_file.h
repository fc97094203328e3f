#pragma once

#include "core/app_state.h"
#include "platform/files/file_system.h"

namespace Morvane {

// Sets SpessoreBordo and FileFolder from morvane.ini in AppPath, or to their defaults, 0 and "c:\", where the
// file or the key is missing or empty. A file that cannot be opened counts as missing; a number outside 16
// bits is passed over. Never fails.
void ReadSettings(AppState& state, const FileSystem& files);

// Replaces morvane.ini in AppPath. A write that fails leaves the old file and is not reported.
void SalvaImpostazioni(const AppState& state, FileSystem& files);

}  // namespace Morvane
