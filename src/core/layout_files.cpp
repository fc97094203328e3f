#include "core/layout_files.h"

#include <algorithm>

#include "core/layout_reader.h"
#include "platform/runtime_error.h"

namespace Morvane {

std::string WithBackslash(std::string path) {
  if (!path.ends_with('\\')) path += '\\';
  return path;
}

std::string LayoutPath(const std::string& folder, std::string name) {
  std::replace(name.begin(), name.end(), '\\', '/');
  return folder + name + std::string(kLayoutExtension);
}

bool ReadCurrentLayout(AppState& state, const FileSystem& files, LayoutHandles& handles) {
  const std::string path = LayoutPath(state.AppPath, state.NomeLayout);
  try {
    if (!files.FileExists(path)) return false;
    handles.push_back(files.OpenForInput(path));
    ReadLayout(*handles.back(), state);
    return true;
  } catch (const RuntimeError&) {
    if (state.lastRead) static_cast<LayoutTables&>(state) = *state.lastRead;
    throw;
  }
}

}  // namespace Morvane
