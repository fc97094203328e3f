#include "platform/qt/pictures/old_formats.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <algorithm>
#include <string_view>

#include "platform/old_formats/limits.h"
#include "platform/qt/pictures/svg_references.h"

namespace Morvane {

namespace {

using namespace std::string_view_literals;

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

}  // namespace

std::optional<OldFormat> FormatOf(const QByteArray& bytes) {
  if (IsEmf(bytes)) return OldFormat::Emf;
  if (IsWmf(bytes)) return OldFormat::Wmf;
  if (IsIff(bytes)) return OldFormat::Iff;
  return std::nullopt;
}

std::optional<QByteArray> DecodeOldFormat(const std::string& decoderPath, OldFormat format,
                                          const QByteArray& bytes) {
  if (bytes.size() > qsizetype{DecoderLimits::kFileBytes}) return std::nullopt;
  const bool isDrawing = format != OldFormat::Iff;
  const qint64 mostBytes = isDrawing ? qint64{DecoderLimits::kSvgBytes} : 4 * DecoderLimits::kPixels;
  auto decoded = RunDecoder(decoderPath, NameOf(format), bytes, mostBytes, DecoderLimits::kWallTime);
  if (!decoded) return std::nullopt;
  const bool isAsAgreed = isDrawing ? RefersOnlyToItself(*decoded) : decoded->startsWith("BM");
  return isAsAgreed ? decoded : std::nullopt;
}

std::optional<QByteArray> RunDecoder(const std::string& program, const char* argument,
                                     const QByteArray& input, qsizetype mostBytes,
                                     std::chrono::milliseconds wallTime) {
  const QDeadlineTimer deadline(wallTime);
  QProcess process;
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(QString::fromStdString(program), {argument});
  process.write(input);
  process.closeWriteChannel();
  QByteArray output;
  do {
    process.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
    output += process.readAllStandardOutput();
    if (deadline.hasExpired() || output.size() > mostBytes) {
      process.kill();
      process.waitForFinished();
      return std::nullopt;
    }
  } while (process.state() != QProcess::NotRunning);
  const bool endedWell = process.error() != QProcess::FailedToStart &&
                         process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
  return endedWell ? std::optional(output) : std::nullopt;
}

}  // namespace Morvane
