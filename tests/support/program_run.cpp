#include "tests/support/program_run.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace Morvane {

ProgramRun RunProgram(const std::string& command, const std::string& folder) {
  const std::string errors = folder + "/errors";
  const int status = std::system((command + " 2>'" + errors + "'").c_str());
  std::stringstream text;
  text << std::ifstream(errors).rdbuf();
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text.str()};
}

}  // namespace Morvane
