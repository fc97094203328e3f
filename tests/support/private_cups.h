#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

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
  ~PrivateCups();
  PrivateCups(const PrivateCups&) = delete;
  PrivateCups& operator=(const PrivateCups&) = delete;

  // A queue whose sheets are written to SheetPath, each over the one before. The printer "uneven" takes A4
  // and cannot reach 9.64 points at the left, 17.97 at the top, 14.48 at the right, 14.40 at the bottom;
  // "letter" has the same margins, and Letter by default.
  void AddQueue(const std::string& name, const std::string& printer = "uneven") const;
  // A queue of the printer that a PPD describes, whose sheets are written to SheetPath.
  void AddQueueOf(const std::string& name, const std::string& description) const;
  // Runs a command of the spooler, such as "cupsreject name".
  void Run(const std::string& command) const;
  // The spooler itself, to be stopped, killed and the like.
  pid_t Process() const { return process_; }
  // Ends the spooler; its port is silent from then on.
  void Stop();

  std::string SheetPath() const { return folder_.Path() + "/out/sheet.pdf"; }
  void WaitForJobs() const;
  // What the spooler kept of each job, as it stands in its spool; complete once the spooler has stopped.
  std::vector<std::string> JobRecords() const;

 private:
  void WriteSettings() const;

  TemporaryFolder folder_;
  pid_t process_ = -1;
};

}  // namespace Morvane
