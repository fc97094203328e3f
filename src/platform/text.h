#pragma once

#include <string>
#include <string_view>

namespace Morvane {

// Letters of any alphabet, the same on every machine whatever the user's locale. Text is UTF-8; bytes that
// are no UTF-8 stay as they are.
std::string ToLower(std::string_view text);
std::string ToUpper(std::string_view text);

// The first letter of each word in upper case, the others in lower case. Words are parted by blanks.
std::string ProperCase(std::string_view text);

// Below 0, 0 or above 0: the alphabetical order of lists and folders, without regard to case.
int CompareIgnoringCase(std::string_view a, std::string_view b);

// Without the blanks (spaces only) at both ends.
std::string_view Trim(std::string_view text);

}  // namespace Morvane
