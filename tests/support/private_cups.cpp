#include "tests/support/private_cups.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace Morvane {
namespace {

const std::string kPrinters = MORVANE_SOURCE_DIR "/tests/support/printers/";
constexpr auto kPatience = std::chrono::seconds(20);

template <typename Condition>
void WaitUntil(Condition&& condition, const char* what) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) throw std::runtime_error(std::string("in vain: ") + what);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
}

int CommandResult(const std::string& command) {
  return std::system((command + " >/dev/null 2>&1").c_str());
}

}  // namespace

void PrivateCups::ChooseSocket(const std::string& folder) {
  setenv("CUPS_SERVER", (folder + "/cups.sock").c_str(), 1);
}

PrivateCups::PrivateCups() {
  WriteSettings();
  const std::string conf = folder_.Path() + "/cupsd.conf";
  const std::string files = folder_.Path() + "/cups-files.conf";
  process_ = fork();
  if (process_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    setenv("PATH", "/usr/sbin:/sbin:/usr/bin:/bin", 1);
    execlp("cupsd", "cupsd", "-f", "-c", conf.c_str(), "-s", files.c_str(), nullptr);
    _exit(127);
  }
  WaitUntil([] { return CommandResult("/usr/bin/lpstat -r | grep -q 'is running'") == 0; },
            "the spooler's start");
}

PrivateCups::~PrivateCups() {
  Stop();
}

void PrivateCups::Stop() {
  if (process_ <= 0) return;
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
  process_ = -1;
}

void PrivateCups::WriteSettings() const {
  namespace fs = std::filesystem;
  const std::string root = folder_.Path();
  for (const char* name : {"spool/tmp", "cache", "run", "log", "ppd", "ssl", "out"}) {
    fs::create_directories(root + '/' + name);
  }
  fs::permissions(root, fs::perms(0755));
  fs::permissions(root + "/out", fs::perms::all);
  std::ofstream(root + "/cupsd.conf") << "Listen " << std::getenv("CUPS_SERVER") << '\n'
                                      << std::ifstream(kPrinters + "cupsd.conf").rdbuf();
  std::ofstream files(root + "/cups-files.conf");
  files << "ServerRoot " << root << "\nRequestRoot " << root << "/spool\nTempDir " << root
        << "/spool/tmp\nCacheDir " << root << "/cache\nStateDir " << root << "/run\nServerKeychain " << root
        << "/ssl\nErrorLog " << root << "/log/error_log\nAccessLog " << root << "/log/access_log\nPageLog "
        << root << "/log/page_log\nFileDevice Yes\n";
  if (geteuid() == 0) files << "User lp\nGroup lp\nSystemGroup root\n";
}

void PrivateCups::AddQueue(const std::string& name, const std::string& printer) const {
  Run("lpadmin -p " + name + " -E -v file:" + SheetPath() + " -P '" + kPrinters + printer + ".ppd'");
}

void PrivateCups::AddQueueOf(const std::string& name, const std::string& description) const {
  const std::string ppd = folder_.Path() + '/' + name + ".ppd";
  std::ofstream(ppd) << description;
  Run("lpadmin -p " + name + " -E -v file:" + SheetPath() + " -P " + ppd);
}

void PrivateCups::Run(const std::string& command) const {
  if (CommandResult("PATH=/usr/sbin:/usr/bin:/bin " + command) != 0)
    throw std::runtime_error("failed: " + command);
}

void PrivateCups::WaitForJobs() const {
  WaitUntil([] { return CommandResult("/usr/bin/lpstat -o | grep -q .") != 0; }, "the end of the jobs");
}

std::vector<std::string> PrivateCups::JobRecords() const {
  std::vector<std::string> records;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path() + "/spool")) {
    if (!entry.is_regular_file() || entry.path().filename().string().front() != 'c') continue;
    std::ifstream file(entry.path(), std::ios::binary);
    records.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return records;
}

}  // namespace Morvane
