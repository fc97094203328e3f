#include <chrono>
#include <cstdlib>
#include <iostream>

#include "tests/support/private_cups.h"

// time_copies COMMAND ROUNDS: starts a print spooler of its own with the queue "prova" and tells, for each
// round, the milliseconds of COMMAND with 1 copy and with 3.
int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const Morvane::TemporaryFolder own;
  Morvane::PrivateCups::ChooseSocket(own.Path());
  Morvane::PrivateCups spooler;
  spooler.AddQueue("prova");
  for (int round = std::stoi(argv[2]); round > 0; --round) {
    for (const int copies : {1, 3}) {
      const auto start = std::chrono::steady_clock::now();
      const std::string command =
          std::string(argv[1]) + " --printer prova --copies " + std::to_string(copies);
      if (std::system(command.c_str()) != 0) return 1;
      const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
      std::cout << taken.count() << (copies == 1 ? ' ' : '\n');
      spooler.WaitForJobs();
    }
  }
  return 0;
}
