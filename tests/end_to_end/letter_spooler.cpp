#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "tests/support/private_cups.h"

// letter-spooler: a spooler whose default printer takes Letter. Writes its address once it is ready, and ends
// when it is told to terminate.
int main() {
  const Morvane::TemporaryFolder own;
  Morvane::PrivateCups::ChooseSocket(own.Path());
  Morvane::PrivateCups spooler;
  spooler.AddQueue("letter", Morvane::PrivateCups::Takes::Raster);
  spooler.Run("lpadmin -d letter");
  sigset_t ending;
  sigemptyset(&ending);
  sigaddset(&ending, SIGTERM);
  sigprocmask(SIG_BLOCK, &ending, nullptr);
  std::puts(std::getenv("CUPS_SERVER"));
  std::fflush(stdout);
  int signal = 0;
  return sigwait(&ending, &signal);
}
