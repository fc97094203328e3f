#pragma once

#include <functional>
#include <string>

namespace Morvane {

// A file of cases below the project's folder: lines that begin with "> " are given, what comes of them stands
// below; those that begin with # are remarks. All is given anew, line breaks as they are, and must read the
// same. With MORVANE_TAKE_PICTURES set, what comes is taken over.
void ExpectCases(const std::string& file,
                 const std::function<std::string(const std::string& given)>& outcome);

}  // namespace Morvane
