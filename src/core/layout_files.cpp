#include "core/layout_files.h"

#include <algorithm>
#include <utility>

#include "core/layout_reader.h"
#include "platform/runtime_error.h"

namespace Morvane {

namespace {

// Null when the machine has no room for one more open file.
std::unique_ptr<InputFile> OpenOrSkip(const FileSystem& files, const std::string& path) {
  try {
    return files.OpenForInput(path);
  } catch (const RuntimeError& error) {
    if (error.Number() != ErrorNumber::PathFileAccess) throw;
    return nullptr;
  }
}

}  // namespace

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
  if (!files.FileExists(path)) return false;
  auto file = OpenOrSkip(files, path);
  if (!file) return false;
  handles.push_back(std::move(file));
  ReadLayout(*handles.back(), state);
  return true;
}

}  // namespace Morvane
