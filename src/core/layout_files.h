#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/app_state.h"
#include "platform/files/file_system.h"

namespace Morvane {

inline constexpr std::string_view kLayoutExtension = ".mvne";

// The path with a backslash added when its last character is none.
std::string WithBackslash(std::string path);

// The file of the layout `name` in `folder`, which ends in a backslash. A backslash in the name becomes a
// slash, which no file name can hold: a layout lies in this folder, and no name leads out of it.
std::string LayoutPath(const std::string& folder, std::string name);

// The files that the main window has read layouts from. They stay open until this object goes, that is until
// the program ends: each reading holds one more open file.
using LayoutHandles = std::vector<std::unique_ptr<InputFile>>;

// Reads the file of NomeLayout in AppPath into the state and keeps it open. False, and nothing changed, when
// it is missing. RuntimeError as OpenForInput and ReadLayout; the covers are then those that were read last:
// what the editor changed without saving it is not printed.
bool ReadCurrentLayout(AppState& state, const FileSystem& files, LayoutHandles& handles);

}  // namespace Morvane
