#pragma once

#include <string>

namespace Morvane {

// The native path of a file that belongs to this program: beside it, as it is built, else in
// ../libexec/morvane, as it is installed. It need not exist.
std::string ProgramPart(const std::string& name);

}  // namespace Morvane
