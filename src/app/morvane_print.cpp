#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "app/print_program.h"
#include "platform/runtime_error.h"

namespace {

using namespace Morvane;

// Beside this program, else in ../libexec/morvane.
std::string QueueProgram() {
  std::error_code unknown;  // then there is no such program either
  const std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
  const std::filesystem::path beside = folder / "morvane-print-queue";
  return exists(beside, unknown) ? beside : folder / "../libexec/morvane/morvane-print-queue";
}

bool WantsQueue(const std::vector<std::string>& arguments) {
  try {
    const PrintArguments parsed = ParsePrintArguments(arguments);
    return !parsed.help && parsed.pdf.empty();
  } catch (const UsageError&) {
    return false;  // told when the program runs
  }
}

}  // namespace

// Sheets for a queue are made by a program of their own, which this one becomes: the toolkit's libraries for
// printers would take a PDF file longer to load than to write.
int main(int argc, char** argv) {
  if (WantsQueue({argv + 1, argv + argc})) execv(QueueProgram().c_str(), argv);
  return RunPrintProgram(argc, argv, [](const PrintArguments&) -> std::unique_ptr<PrinterDevice> {
    throw RuntimeError(ErrorNumber::FileNotFound, "Manca il programma 'morvane-print-queue'.");
  });
}
