#pragma once

#include <string>
#include <string_view>

namespace Morvane {

// Without the blanks (spaces only) at both ends.
std::string_view Trim(std::string_view text);

// Letters of the Latin, Greek and Cyrillic alphabets change case one by one, everything else stays. UTF-8;
// bytes that are not UTF-8 stay as they are. The process's locale plays no part.
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);

// The first letter of each word in upper case, the others in lower case. Words are parted by blanks.
std::string ProperCase(std::string_view text);

// Equal but for upper and lower case.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

}  // namespace Morvane
