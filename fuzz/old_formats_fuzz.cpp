#include <initializer_list>
#include <memory>

#include "fuzz/support/fuzz_machine.h"
#include "platform/old_formats/decoder.h"
#include "platform/qt/pictures/old_formats.h"
#include "platform/qt/pictures/svg_references.h"

using namespace Morvane;

namespace {

void Check(OldFormat format, const QByteArray& picture) {
  if (format == OldFormat::Iff) {
    MustHold(picture.startsWith("BM"), "pixels are a bitmap file");
  } else {
    MustHold(RefersOnlyToItself(picture), "a drawing refers to nothing outside");
  }
}

// The libraries take memory for as many objects and as long a record as a header claims; it would cost all
// the time.
std::string WithoutHighBytes(std::string bytes, std::initializer_list<std::size_t> places) {
  for (const std::size_t place : places) {
    if (place < bytes.size()) bytes[place] = 0;
  }
  return bytes;
}

std::string WithSmallClaims(OldFormat format, std::string bytes) {
  if (format == OldFormat::Emf) return WithoutHighBytes(std::move(bytes), {57});
  const std::size_t header = bytes[0] == '\xD7' ? 22 : 0;
  return WithoutHighBytes(std::move(bytes), {header + 11, header + 14, header + 15});
}

// The drawings are decoded under the sanitizers. Not IFF, whose library writes where it must not: its process
// is for that.
void DecodeHere(OldFormat format, const std::string& bytes) try {
  static const std::unique_ptr<Decoder> emf = MakeEmfDecoder();
  if (format == OldFormat::Emf) emf->Decode(WithSmallClaims(format, bytes));
  if (format == OldFormat::Wmf) MakeWmfDecoder()->Decode(WithSmallClaims(format, bytes));
} catch (const Undecodable&) {
}

}  // namespace

// A file of an old format with any content: its decoder gives a picture or none. So does the decoder in its
// locked process, which takes 20 times as long: for the first input of every 16, so also for one that runs
// alone.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static unsigned inputs = 0;
  const std::string bytes = Text(data, size);
  const auto format = FormatOf(QByteArray::fromStdString(bytes));
  if (!format) return 0;
  DecodeHere(*format, bytes);
  if (inputs++ % 16 != 0) return 0;
  if (const auto picture = DecodeOldFormat(MORVANE_DECODER, *format, QByteArray::fromStdString(bytes)))
    Check(*format, *picture);
  return 0;
}
