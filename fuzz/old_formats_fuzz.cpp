#include "fuzz/support/fuzz_machine.h"
#include "platform/qt/pictures/old_formats.h"
#include "platform/qt/pictures/svg_references.h"

using namespace Morvane;

namespace {

void Check(const DecodedPicture& picture) {
  if (const auto* svg = std::get_if<DecodedSvg>(&picture)) {
    MustHold(svg->widthTwips > 0 && svg->heightTwips > 0, "a drawing has a size");
    MustHold(RefersOnlyToItself(svg->text), "a drawing refers to nothing outside");
    return;
  }
  const auto& pixels = std::get<DecodedPixels>(picture);
  MustHold(pixels.width > 0 && pixels.height > 0, "a picture has a size");
  MustHold(pixels.rgba.size() == qsizetype{4} * pixels.width * pixels.height, "all pixels are there");
}

}  // namespace

// A file of an old format with any content: the decoder, in its locked process, gives a picture or none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = Text(data, size);
  const auto format = FormatOf(bytes);
  if (!format) return 0;
  if (const auto picture = DecodeOldFormat(MORVANE_DECODER, *format, bytes)) Check(*picture);
  return 0;
}
