#pragma once

#include <string_view>

namespace Morvane {

// True when every reference of the SVG text stays inside it: data: and #name only, no document type, no
// instruction, no style sheet, no script. False also for a text whose tags can't be told apart for sure.
bool RefersOnlyToItself(std::string_view svg);

}  // namespace Morvane
