#pragma once

#include <string_view>

#include "platform/case_folding.h"

namespace Morvane {

// Without the blanks (spaces only) at both ends.
std::string_view Trim(std::string_view text);

// Equal but for upper and lower case. UTF-8; the process's locale plays no part.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

}  // namespace Morvane
