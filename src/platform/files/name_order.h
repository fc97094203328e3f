#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Morvane {

// Whether a name of the disk and one of the program are the same without regard to case. Bytes that are no
// UTF-8 count as their Windows-1252 meaning.
bool IsSameName(std::string_view onDisk, std::string_view name);

// Alphabetically without regard to case; of names that differ in case only, small letters come first.
bool NameIsBefore(std::string_view left, std::string_view right);
void SortNames(std::vector<std::string>& names);

}  // namespace Morvane
