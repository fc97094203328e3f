#pragma once

#include <memory>
#include <string>

#include "platform/files/file_descriptor.h"
#include "platform/files/file_system.h"

namespace Morvane {

// `native` is the path that is opened, `path` the one that an error names. What is no plain file is refused
// (PathFileAccess) without being opened, so that no pipe or device makes the program wait.
FileDescriptor OpenPlainFile(const std::string& native, const std::string& path);

// The whole file; refused (OutOfMemory) above 512 MB.
std::string ReadPlainFile(const std::string& native, const std::string& path);

// As FileSystem::OpenForInput.
std::unique_ptr<InputFile> OpenTextFile(const std::string& native, const std::string& path);

}  // namespace Morvane
