#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>

#include "tests/support/test_machine.h"

namespace Morvane {

// A print spooler of the test's own: its files lie in a temporary folder, it listens on a socket in the file
// system and ends with this object or, however that ends, with the test. The queues of the machine are never
// seen.
class PrivateCups {
 public:
  // Makes the process ask for its printers at a socket in `folder`; nothing listens there until a PrivateCups
  // is made. Called once, before anything asks for printers.
  static void ChooseSocket(const std::string& folder);

  PrivateCups();
  ~PrivateCups() { Stop(); }
  PrivateCups(const PrivateCups&) = delete;
  PrivateCups& operator=(const PrivateCups&) = delete;

  // A queue of the printer that a PPD file describes, else of the one of its name: "uneven" takes A4 and
  // cannot reach 9.64 points at the left, 17.97 at the top, 14.48 at the right, 14.40 at the bottom; "letter"
  // has the same margins, and Letter by default. Its sheets are written to SheetPath, each over the one
  // before.
  void AddQueue(const std::string& name, const std::string& description = {}) const;
  // Runs a command of the spooler, such as "cupsreject name", again and again until it succeeds or `patience`
  // is at its end.
  void Run(const std::string& command, std::chrono::seconds patience = {}) const;
  // The spooler itself, to be stopped, killed and the like.
  pid_t Process() const { return process_; }
  // Ends the spooler; its port is silent from then on.
  void Stop();

  std::string SheetPath() const { return folder_.Path("sheet.pdf"); }
  void WaitForJobs() const;
  // What the spooler kept of a job, as it stands in its spool, counted from 1; complete once the spooler has
  // stopped.
  std::string JobRecord(int job) const { return folder_.Read("spool/c0000" + std::to_string(job)); }

 private:
  TemporaryFolder folder_;
  pid_t process_ = -1;
};

}  // namespace Morvane
