#include "core/version_check.h"

#include "core/number_text.h"
#include "platform/text.h"

namespace Morvane {

std::string VersioneRemota(std::string_view body) {
  if (!body.empty()) body.remove_suffix(1);
  return std::string(body);
}

std::string VersioneLocale(const AppInfo& app) {
  std::string digits = app.version;
  std::erase(digits, '.');
  return digits;
}

bool IsNewer(std::string_view versioneRemota, std::string_view versioneLocale) {
  return Val(versioneLocale) < Val(versioneRemota);
}

std::string NewVersionMessage(const AppInfo& app, std::string_view versioneRemota) {
  const std::string_view digits = Trim(versioneRemota);
  const auto character = [&](std::size_t i) {
    return i < digits.size() ? std::string(1, digits[i]) : std::string();
  };
  const std::string remote = character(0) + "." + character(1) + "." + character(2);
  return "Versione di Morvane installata sul PC : " + app.version + "\r\n" +
         "E' disponibile su Internet la nuova versione " + remote + " del programma.\r\n" +
         "Si desidera scaricala ed installarla adesso? ";
}

}  // namespace Morvane
