#include "platform/old_formats/svg_references.h"

#include "fuzz/support/fuzz_machine.h"

using namespace Morvane;

// A text that passes names no address outside itself in any tag.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string svg = Text(data, size);
  if (!RefersOnlyToItself(svg)) return 0;
  MustHold(svg.find("<!DOCTYPE") == std::string::npos, "no document type");
  MustHold(svg.find("<script>") == std::string::npos, "no script");
  return 0;
}
