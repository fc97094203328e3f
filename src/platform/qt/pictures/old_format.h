#pragma once

#include <optional>
#include <string>

namespace Morvane {

enum class OldFormat { Emf, Wmf, Iff };

// The format that a file's bytes show, whatever its name says. Nothing when they are none of the three.
std::optional<OldFormat> FormatOf(const std::string& bytes);

}  // namespace Morvane
