#pragma once

#include "core/app_state.h"
#include "platform/files/file_system.h"

namespace Morvane {

// Reads morvane.ini in AppPath into SpessoreBordo and FileFolder; then an empty FileFolder becomes "c:\". A
// missing file, one that cannot be opened, and a value outside 16 bits leave the variable as it is. Never
// fails.
void ReadSettings(AppState& state, const FileSystem& files);

// Replaces morvane.ini in AppPath. A write that fails leaves the old file and is not reported.
void SalvaImpostazioni(const AppState& state, FileSystem& files);

}  // namespace Morvane
