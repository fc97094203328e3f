#include "platform/files/program_part.h"

#include <filesystem>
#include <system_error>

namespace Morvane {

std::string ProgramPart(const std::string& name) {
  std::error_code unknown;  // then nothing is found either
  const std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
  const std::filesystem::path beside = folder / name;
  return exists(beside, unknown) ? beside : folder / "../libexec/morvane" / name;
}

}  // namespace Morvane
