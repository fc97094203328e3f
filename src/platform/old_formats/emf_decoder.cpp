#include <emf2svg.h>
#include <iconv.h>

#include <array>
#include <cmath>
#include <cstring>
#include <vector>

#include "platform/old_formats/byte_reader.h"
#include "platform/old_formats/decoder.h"
#include "platform/old_formats/svg_text.h"
#include "platform/units.h"

namespace Morvane {

namespace {

constexpr double kTwipsPerHundredthMm = kTwipsPerMillimetre / 100;
constexpr size_t kHeaderSize = 88;
constexpr size_t kBoundsOffset = 8;
constexpr size_t kFrameOffset = 24;
constexpr size_t kDescriptionPlaceOffset = 64;
constexpr size_t kDeviceOffset = 72;
constexpr size_t kMillimetresOffset = 80;

// The part of the drawing's device that is the picture, in device pixels, and what it measures.
struct Frame {
  SvgBox pixels;
  double widthTwips = 0;
  double heightTwips = 0;
};

SvgBox BoxAt(const ByteReader& file, size_t offset) {
  const double left = file.Signed32(offset);
  const double top = file.Signed32(offset + 4);
  return {left, top, file.Signed32(offset + 8) - left, file.Signed32(offset + 12) - top};
}

Frame FrameOf(const ByteReader& file) {
  const SvgBox frame = BoxAt(file, kFrameOffset);
  const double xScale = file.Signed32(kDeviceOffset) / (100.0 * file.Signed32(kMillimetresOffset));
  const double yScale = file.Signed32(kDeviceOffset + 4) / (100.0 * file.Signed32(kMillimetresOffset + 4));
  const bool usable = frame.width > 0 && frame.height > 0 && std::isfinite(xScale) && std::isfinite(yScale) &&
                      xScale > 0 && yScale > 0;
  if (usable) {
    return {{frame.left * xScale, frame.top * yScale, frame.width * xScale, frame.height * yScale},
            frame.width * kTwipsPerHundredthMm,
            frame.height * kTwipsPerHundredthMm};
  }
  const SvgBox bounds = BoxAt(file, kBoundsOffset);
  if (bounds.width <= 0 || bounds.height <= 0) throw Undecodable("empty frame");
  return {bounds, bounds.width * kTwipsPerPixel, bounds.height * kTwipsPerPixel};
}

void PutS32(std::string& bytes, size_t offset, double value) {
  if (std::abs(value) > 1e9) throw Undecodable("frame too large");
  const int32_t number = static_cast<int32_t>(value);
  std::memcpy(bytes.data() + offset, &number, sizeof number);
}

void PutU32(std::string& bytes, size_t offset, uint32_t value) {
  std::memcpy(bytes.data() + offset, &value, sizeof value);
}

// A text given as glyph numbers means nothing without the very font file, and the library would look for one.
void EmptyGlyphText(std::string& bytes, size_t countOffset, size_t optionsOffset) {
  constexpr uint32_t kGlyphIndex = 0x10;
  const uint32_t options = ByteReader(bytes).Unsigned32(optionsOffset);
  if ((options & kGlyphIndex) == 0) return;
  PutU32(bytes, countOffset, 0);
  PutU32(bytes, optionsOffset, options & ~kGlyphIndex);
}

void EmptyGlyphTexts(std::string& bytes) {
  constexpr uint32_t kExtTextOutA = 83;
  constexpr uint32_t kExtTextOutW = 84;
  constexpr uint32_t kSmallTextOut = 108;
  const ByteReader file(bytes);
  for (size_t at = 0; at + 8 <= file.Size();) {
    const uint32_t type = file.Unsigned32(at);
    const uint32_t size = file.Unsigned32(at + 4);
    if (size < 8) throw Undecodable("record too short");
    if (type == kExtTextOutA || type == kExtTextOutW) EmptyGlyphText(bytes, at + 44, at + 52);
    if (type == kSmallTextOut) EmptyGlyphText(bytes, at + 16, at + 20);
    at += size;
  }
}

using Conversion = std::unique_ptr<void, decltype(&iconv_close)>;

// iconv reads its tables from files at the first use of each; the library uses these.
std::vector<Conversion> OpenConversions() {
  constexpr std::array<std::array<const char*, 2>, 6> kConversions = {{{"UTF-8", "UTF-16LE"},
                                                                       {"UTF-16LE", "UTF-8"},
                                                                       {"UTF-8", "UTF-32LE"},
                                                                       {"UTF-32LE", "UTF-8"},
                                                                       {"UTF-8", "LATIN1"},
                                                                       {"LATIN1//TRANSLIT", "UTF-8"}}};
  std::vector<Conversion> conversions;
  for (const auto& [to, from] : kConversions) {
    iconv_t opened = iconv_open(to, from);
    if (opened != reinterpret_cast<iconv_t>(-1)) conversions.emplace_back(opened, &iconv_close);
  }
  return conversions;
}

class EmfDecoder : public Decoder {
 public:
  std::string Decode(const std::string& bytes) override {
    if (bytes.size() < kHeaderSize) throw Undecodable("truncated");
    const Frame frame = FrameOf(ByteReader(bytes));
    const double left = std::floor(frame.pixels.left);
    const double top = std::floor(frame.pixels.top);
    // The library scales and moves the drawing by the bounds of its ink; with the frame put there, it
    // doesn't.
    std::string framed = bytes;
    EmptyGlyphTexts(framed);
    // Nowhere: the description isn't drawn, and where it has no end the library reads on outside the file.
    PutU32(framed, kDescriptionPlaceOffset, 0);
    PutS32(framed, kBoundsOffset, left);
    PutS32(framed, kBoundsOffset + 4, top);
    PutS32(framed, kBoundsOffset + 8, std::ceil(left + frame.pixels.width));
    PutS32(framed, kBoundsOffset + 12, std::ceil(top + frame.pixels.height));
    const SvgBox view{frame.pixels.left - left, frame.pixels.top - top, frame.pixels.width,
                      frame.pixels.height};
    return SvgDocument(frame.widthTwips, frame.heightTwips, view, Convert(framed));
  }

 private:
  static std::string Convert(std::string& bytes) {
    generatorOptions options{};
    options.emfplus = false;
    options.svgDelimiter = false;
    char* text = nullptr;
    size_t length = 0;
    const int converted = emf2svg(bytes.data(), bytes.size(), &text, &length, &options);
    const std::unique_ptr<char, decltype(&std::free)> owner(text, &std::free);
    if (converted == 0 || text == nullptr) throw Undecodable("not converted");
    return std::string(text, length);
  }

  std::vector<Conversion> conversions_ = OpenConversions();
};

}  // namespace

std::unique_ptr<Decoder> MakeEmfDecoder() {
  return std::make_unique<EmfDecoder>();
}

}  // namespace Morvane
