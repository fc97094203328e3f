#pragma once

#include <cups/cups.h>

#include <QLibrary>

namespace Morvane {

// A function of the print service's library, which is loaded by the first: with the libraries that it brings
// along it would take 3 ms of each start. Null where it isn't installed.
struct CupsFunction {
  const char* name;

  template <typename Function>
  operator Function*() const {
    return reinterpret_cast<Function*>(QLibrary::resolve("cups", 2, name));
  }
};

struct CupsLibrary {
  decltype(&::cupsServer) cupsServer = CupsFunction{"cupsServer"};
  decltype(&::cupsEncryption) cupsEncryption = CupsFunction{"cupsEncryption"};
  decltype(&::cupsSetPasswordCB2) cupsSetPasswordCB2 = CupsFunction{"cupsSetPasswordCB2"};
  decltype(&::cupsDoRequest) cupsDoRequest = CupsFunction{"cupsDoRequest"};
  decltype(&::cupsLastError) cupsLastError = CupsFunction{"cupsLastError"};
  decltype(&::cupsLastErrorString) cupsLastErrorString = CupsFunction{"cupsLastErrorString"};
  decltype(&::ippPort) ippPort = CupsFunction{"ippPort"};
  decltype(&::ippNewRequest) ippNewRequest = CupsFunction{"ippNewRequest"};
  decltype(&::ippDelete) ippDelete = CupsFunction{"ippDelete"};
  decltype(&::httpConnect2) httpConnect2 = CupsFunction{"httpConnect2"};
  decltype(&::httpSetTimeout) httpSetTimeout = CupsFunction{"httpSetTimeout"};
  decltype(&::httpClose) httpClose = CupsFunction{"httpClose"};

  explicit operator bool() const { return cupsServer != nullptr; }
};

}  // namespace Morvane
