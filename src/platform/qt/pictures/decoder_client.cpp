#include "platform/qt/pictures/decoder_client.h"

#include <cstdint>
#include <limits>
#include <sstream>

#include "platform/qt/pictures/decoder_process.h"
#include "platform/qt/pictures/svg_references.h"
#include "platform/units.h"

namespace Morvane {

namespace {

constexpr size_t kMegabyte = 1024 * 1024;
constexpr size_t kMaxFileBytes = 64 * kMegabyte;
constexpr size_t kMaxSvgBytes = 64 * kMegabyte;
constexpr int64_t kMaxPixels = 64 * 1024 * 1024;
constexpr int kMaxSide = 30000;
constexpr double kMaxSideTwips = kMaxSide * kTwipsPerPixel;
constexpr size_t kHeaderBytes = 100;

const char* NameOf(OldFormat format) {
  switch (format) {
    case OldFormat::Emf:
      return "emf";
    case OldFormat::Wmf:
      return "wmf";
    case OldFormat::Iff:
      return "iff";
  }
  return "";
}

// "svg WIDTH HEIGHT" or "rgba WIDTH HEIGHT" on a line of its own stands before the picture itself.
struct Header {
  std::string kind;
  double width = 0;
  double height = 0;
  size_t size = 0;
};

std::optional<Header> HeaderOf(const std::string& output) {
  const size_t end = output.substr(0, kHeaderBytes).find('\n');
  if (end == std::string::npos) return std::nullopt;
  std::istringstream line(output.substr(0, end));
  line.imbue(std::locale::classic());
  Header header;
  if (!(line >> header.kind >> header.width >> header.height)) return std::nullopt;
  header.size = end + 1;
  return header;
}

bool IsWithin(double value, double low, double high) {
  return value >= low && value <= high;
}

std::optional<DecodedPicture> SvgOf(const Header& header, std::string output) {
  output.erase(0, header.size);
  if (!IsWithin(header.width, 1, kMaxSideTwips) || !IsWithin(header.height, 1, kMaxSideTwips)) {
    return std::nullopt;
  }
  if (!RefersOnlyToItself(output)) return std::nullopt;
  return DecodedSvg{std::move(output), header.width, header.height};
}

std::optional<DecodedPicture> PixelsOf(const Header& header, std::string output) {
  if (!IsWithin(header.width, 1, kMaxSide) || !IsWithin(header.height, 1, kMaxSide)) return std::nullopt;
  const int width = static_cast<int>(header.width);
  const int height = static_cast<int>(header.height);
  const int64_t pixels = int64_t{width} * height;
  output.erase(0, header.size);
  if (pixels > kMaxPixels || output.size() != static_cast<size_t>(pixels) * 4) return std::nullopt;
  return DecodedPixels{width, height, std::move(output)};
}

}  // namespace

std::optional<DecodedPicture> DecodeOldFormat(const std::string& decoderPath, OldFormat format,
                                              const std::string& bytes) {
  if (bytes.size() > kMaxFileBytes) return std::nullopt;
  const bool isIff = format == OldFormat::Iff;
  const size_t maxBody = isIff ? static_cast<size_t>(kMaxPixels) * 4 : kMaxSvgBytes;
  const DecoderLimits limits{std::chrono::seconds(2), kHeaderBytes + maxBody};
  std::optional<std::string> output = RunDecoder(decoderPath, NameOf(format), bytes, limits);
  if (!output) return std::nullopt;
  const auto header = HeaderOf(*output);
  if (!header || header->kind != (isIff ? "rgba" : "svg")) return std::nullopt;
  return isIff ? PixelsOf(*header, *std::move(output)) : SvgOf(*header, *std::move(output));
}

}  // namespace Morvane
