#include "platform/old_formats/decoder/emf_decoder.h"

#include <emf2svg.h>
#include <iconv.h>

#include <cmath>
#include <cstring>

#include "platform/old_formats/decoder/byte_reader.h"
#include "platform/old_formats/decoder/svg_text.h"

namespace Morvane {

namespace {

constexpr double kTwipsPerHundredthMm = 1440.0 / 2540.0;
constexpr double kTwipsPerScreenPixel = 15.0;
constexpr size_t kHeaderSize = 88;
constexpr size_t kBoundsOffset = 8;
constexpr size_t kFrameOffset = 24;
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
  return {bounds, bounds.width * kTwipsPerScreenPixel, bounds.height * kTwipsPerScreenPixel};
}

void PutS32(std::string& bytes, size_t offset, double value) {
  if (std::abs(value) > 1e9) throw Undecodable("frame too large");
  const int32_t number = static_cast<int32_t>(value);
  std::memcpy(bytes.data() + offset, &number, sizeof number);
}

class EmfDecoder : public Decoder {
 public:
  // The library converts its texts with iconv, which would load its tables from files at the first use.
  EmfDecoder() : utf16_(iconv_open("UTF-8", "UTF-16LE")) {}
  ~EmfDecoder() override {
    if (utf16_ != reinterpret_cast<iconv_t>(-1)) iconv_close(utf16_);
  }
  EmfDecoder(const EmfDecoder&) = delete;
  EmfDecoder& operator=(const EmfDecoder&) = delete;

  std::string Decode(const std::string& bytes) override {
    if (bytes.size() < kHeaderSize) throw Undecodable("truncated");
    const Frame frame = FrameOf(ByteReader(bytes));
    const double left = std::floor(frame.pixels.left);
    const double top = std::floor(frame.pixels.top);
    // The library scales and moves the drawing by the bounds of its ink; with the frame put there, it
    // doesn't.
    std::string framed = bytes;
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

  iconv_t utf16_;
};

}  // namespace

std::unique_ptr<Decoder> MakeEmfDecoder() {
  return std::make_unique<EmfDecoder>();
}

}  // namespace Morvane
