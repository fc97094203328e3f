#include "platform/old_formats/decoder_client.h"

#include <unistd.h>

#include <cstdint>
#include <limits>
#include <sstream>

#include "platform/old_formats/decoder_process.h"
#include "platform/old_formats/svg_references.h"
#include "platform/runtime_error.h"
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

[[noreturn]] void Refuse() {
  throw RuntimeError(ErrorNumber::InvalidPicture,
                     "Immagine non valida: il file è danneggiato o non può essere letto.");
}

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

Header HeaderOf(const std::string& output) {
  const size_t end = output.substr(0, kHeaderBytes).find('\n');
  if (end == std::string::npos) Refuse();
  std::istringstream line(output.substr(0, end));
  line.imbue(std::locale::classic());
  Header header;
  if (!(line >> header.kind >> header.width >> header.height)) Refuse();
  header.size = end + 1;
  return header;
}

bool IsWithin(double value, double low, double high) {
  return value >= low && value <= high;
}

DecodedSvg SvgOf(const Header& header, std::string output) {
  output.erase(0, header.size);
  if (!IsWithin(header.width, 1, kMaxSideTwips) || !IsWithin(header.height, 1, kMaxSideTwips)) Refuse();
  if (!RefersOnlyToItself(output)) Refuse();
  return {std::move(output), header.width, header.height};
}

DecodedPixels PixelsOf(const Header& header, std::string output) {
  if (!IsWithin(header.width, 1, kMaxSide) || !IsWithin(header.height, 1, kMaxSide)) Refuse();
  const int width = static_cast<int>(header.width);
  const int height = static_cast<int>(header.height);
  const int64_t pixels = int64_t{width} * height;
  output.erase(0, header.size);
  if (pixels > kMaxPixels || output.size() != static_cast<size_t>(pixels) * 4) Refuse();
  return {width, height, std::move(output)};
}

}  // namespace

DecodedPicture DecodeOldFormat(const std::string& decoderPath, OldFormat format, const std::string& bytes) {
  if (bytes.size() > kMaxFileBytes) Refuse();
  if (access(decoderPath.c_str(), X_OK) != 0) {
    throw RuntimeError(ErrorNumber::InvalidPicture,
                       "Immagine non leggibile: manca il programma \"morvane-decode\".");
  }
  const bool isIff = format == OldFormat::Iff;
  const size_t maxBody = isIff ? static_cast<size_t>(kMaxPixels) * 4 : kMaxSvgBytes;
  const DecoderLimits limits{std::chrono::seconds(2), kHeaderBytes + maxBody};
  std::optional<std::string> output = RunDecoder(decoderPath, NameOf(format), bytes, limits);
  if (!output) Refuse();
  const Header header = HeaderOf(*output);
  if (header.kind != (isIff ? "rgba" : "svg")) Refuse();
  if (isIff) return PixelsOf(header, *std::move(output));
  return SvgOf(header, *std::move(output));
}

}  // namespace Morvane
