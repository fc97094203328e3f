#pragma once

#include <functional>
#include <string>

namespace Morvane {

// A text below the project's folder is what was taken over last. A difference fails the test, which marks it
// and leaves what it saw in the build's folder "seen", under the same path; tools/take-pictures takes it
// over.
void ExpectText(const std::string& path, const std::string& seen);

// A text of cases: lines that begin with "> " are given, what comes of them stands below, or behind
// an arrow where one line fits both; those that begin with # are remarks. All is given anew, line breaks as
// they are, and must read the same.
void ExpectCases(const std::string& path,
                 const std::function<std::string(const std::string& given)>& outcome);

}  // namespace Morvane
