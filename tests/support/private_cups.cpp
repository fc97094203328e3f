#include "tests/support/private_cups.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace Morvane {
namespace {

const std::string kPrinters = MORVANE_SOURCE_DIR "/tests/support/printers/";
constexpr std::chrono::seconds kPatience(20);

}  // namespace

void PrivateCups::ChooseSocket(const std::string& folder) {
  setenv("CUPS_SERVER", (folder + "/cups.sock").c_str(), 1);
}

PrivateCups::PrivateCups() {
  const auto write = [&](const std::string& name, const std::string& first) {
    std::ofstream(folder_.Path(name)) << first << '\n' << std::ifstream(kPrinters + name).rdbuf();
  };
  write("cupsd.conf", std::string("Listen ") + std::getenv("CUPS_SERVER"));
  write("cups-files.conf", "ServerRoot " + folder_.Path());
  process_ = fork();
  if (process_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    execl("/usr/sbin/cupsd", "cupsd", "-f", "-c", folder_.Path("cupsd.conf").c_str(), "-s",
          folder_.Path("cups-files.conf").c_str(), nullptr);
    _exit(127);
  }
  Run("lpstat -r | grep -q 'is running'", kPatience);
}

void PrivateCups::Stop() {
  if (process_ <= 0) return;
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
  process_ = -1;
}

void PrivateCups::AddQueue(const std::string& name, const std::string& description) const {
  Run("lpadmin -p " + name + " -E -v file:" + SheetPath() + " -P '" +
      (description.empty() ? kPrinters + name + ".ppd" : description) + "'");
}

void PrivateCups::Run(const std::string& command, std::chrono::seconds patience) const {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (std::system(("PATH=/usr/sbin:/usr/bin:/bin; (" + command + ") >/dev/null 2>&1").c_str()) != 0) {
    if (std::chrono::steady_clock::now() >= end) throw std::runtime_error("failed: " + command);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
}

void PrivateCups::WaitForJobs() const {
  Run("! lpstat -o | grep -q .", kPatience);
}

}  // namespace Morvane
