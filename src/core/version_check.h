#pragma once

#include <string>
#include <string_view>

#include "platform/app_info.h"

namespace Morvane {

// The maker's version from the body of the update file, which ends in one more byte: all but that; empty for
// an empty body. "261" without the last byte reads as "26".
std::string VersioneRemota(std::string_view body);

// Major, minor and revision joined with nothing between: "260".
std::string VersioneLocale(const AppInfo& app);

// The joined digits compared as numbers: 1000 is newer than 999, whatever the parts mean.
bool IsNewer(std::string_view versioneRemota, std::string_view versioneLocale);

// The question put to the user, lines parted by CR LF. It names the first three characters of the maker's
// version.
std::string NewVersionMessage(const AppInfo& app, std::string_view versioneRemota);

}  // namespace Morvane
