#include "platform/qt/pictures/old_formats.h"

#include <QList>
#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/old_formats/limits.h"
#include "platform/qt/pictures/decoder_process.h"
#include "platform/qt/pictures/svg_references.h"

namespace Morvane {

namespace {

using namespace std::string_view_literals;

constexpr qsizetype kHeaderBytes = 100;

bool HasAt(const QByteArray& bytes, qsizetype offset, std::string_view text) {
  return bytes.sliced(std::min(offset, bytes.size())).startsWith(QByteArrayView(text.data(), text.size()));
}

bool IsEmf(const QByteArray& bytes) {
  return HasAt(bytes, 0, "\1\0\0\0"sv) && HasAt(bytes, 40, " EMF"sv);
}

bool IsWmf(const QByteArray& bytes) {
  const bool placeable = HasAt(bytes, 0, "\xD7\xCD\xC6\x9A"sv);
  const bool standard = HasAt(bytes, 0, "\1\0\x09\0"sv) || HasAt(bytes, 0, "\2\0\x09\0"sv);
  return placeable || (standard && (HasAt(bytes, 4, "\0\3"sv) || HasAt(bytes, 4, "\0\1"sv)));
}

bool IsIff(const QByteArray& bytes) {
  return HasAt(bytes, 0, "FORM"sv) && (HasAt(bytes, 8, "ILBM"sv) || HasAt(bytes, 8, "PBM "sv));
}

const char* NameOf(OldFormat format) {
  return format == OldFormat::Emf ? "emf" : format == OldFormat::Wmf ? "wmf" : "iff";
}

bool IsWithin(double value, double low, double high) {
  return value >= low && value <= high;
}

std::optional<DecodedPicture> SvgOf(QByteArray text, double width, double height) {
  if (!IsWithin(width, 1, DecoderLimits::kSideTwips) || !IsWithin(height, 1, DecoderLimits::kSideTwips) ||
      !RefersOnlyToItself(text)) {
    return std::nullopt;
  }
  return DecodedSvg{std::move(text), width, height};
}

std::optional<DecodedPicture> PixelsOf(QByteArray rgba, double width, double height) {
  if (!IsWithin(width, 1, DecoderLimits::kSide) || !IsWithin(height, 1, DecoderLimits::kSide)) {
    return std::nullopt;
  }
  DecodedPixels pixels{static_cast<int>(width), static_cast<int>(height), std::move(rgba)};
  const qint64 count = qint64{pixels.width} * pixels.height;
  if (count > DecoderLimits::kPixels || pixels.rgba.size() != 4 * count) return std::nullopt;
  return pixels;
}

}  // namespace

std::optional<OldFormat> FormatOf(const QByteArray& bytes) {
  if (IsEmf(bytes)) return OldFormat::Emf;
  if (IsWmf(bytes)) return OldFormat::Wmf;
  if (IsIff(bytes)) return OldFormat::Iff;
  return std::nullopt;
}

std::optional<DecodedPicture> DecodeOldFormat(const std::string& decoderPath, OldFormat format,
                                              const QByteArray& bytes) {
  if (bytes.size() > qsizetype{DecoderLimits::kFileBytes}) return std::nullopt;
  const bool isIff = format == OldFormat::Iff;
  const qint64 mostBytes = isIff ? 4 * DecoderLimits::kPixels : qint64{DecoderLimits::kSvgBytes};
  std::optional<QByteArray> output =
      RunDecoder(decoderPath, NameOf(format), bytes, kHeaderBytes + mostBytes, DecoderLimits::kWallTime);
  if (!output) return std::nullopt;
  // "svg WIDTH HEIGHT" or "rgba WIDTH HEIGHT" on a line of its own stands before the picture itself.
  const qsizetype end = output->left(kHeaderBytes).indexOf('\n');
  const QList<QByteArray> header = output->left(end).split(' ');
  if (end < 0 || header.size() != 3 || header[0] != (isIff ? "rgba" : "svg")) return std::nullopt;
  output->remove(0, end + 1);
  const double width = header[1].toDouble();
  const double height = header[2].toDouble();
  return isIff ? PixelsOf(*std::move(output), width, height) : SvgOf(*std::move(output), width, height);
}

}  // namespace Morvane
