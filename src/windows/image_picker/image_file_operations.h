#pragma once

#include <vector>

#include "core/app_state.h"
#include "platform/controls/list_box.h"
#include "platform/controls/menu.h"
#include "platform/controls/window_system.h"
#include "platform/files/file_system.h"

namespace Morvane {

// The file is always that of the selected row, in CartellaImmagini; without one nothing happens.

// Opens the menu of the list. When its action fails the user is told and the menu opens again, until an
// action succeeds or the user leaves the menu.
void ApriMenudestro(WindowSystem& windows, const std::vector<MenuItem>& menu);

// Asks for the new name, renames the file and the row, which keeps its place. False when the user gave no
// name. RuntimeError from the file system, with file and row as they were.
bool RinominaImmagine(WindowSystem& windows, FileSystem& files, const AppState& state, ListBox& list);

// Deletes the file and the row once the user agrees. A file that can't be deleted is tried again after each
// message.
void CancellaImmagine(WindowSystem& windows, FileSystem& files, const AppState& state, ListBox& list);

}  // namespace Morvane
