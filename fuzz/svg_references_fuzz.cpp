#include "platform/qt/pictures/svg_references.h"

#include "fuzz/support/fuzz_machine.h"

using namespace Morvane;

// What a reader of XML skips.
std::string WithoutComments(std::string svg) {
  for (std::size_t at = svg.find("<!"); at != std::string::npos; at = svg.find("<!", at)) {
    const bool comment = svg.compare(at, 4, "<!--") == 0;
    if (!comment && svg.compare(at, 9, "<![CDATA[") != 0) return svg;
    const std::string end = comment ? "-->" : "]]>";
    svg.erase(at, svg.find(end, at) - at + end.size());
  }
  return svg;
}

// A text that passes names no address outside itself in any tag.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string svg = Text(data, size);
  if (!RefersOnlyToItself(QByteArray::fromStdString(svg))) return 0;
  const std::string read = WithoutComments(svg);
  MustHold(read.find("<!DOCTYPE") == std::string::npos, "no document type");
  MustHold(read.find("<script>") == std::string::npos, "no script");
  return 0;
}
