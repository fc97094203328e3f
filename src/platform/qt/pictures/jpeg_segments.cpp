#include "platform/qt/pictures/jpeg_segments.h"

#include <QColorSpace>
#include <QDataStream>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <utility>

namespace Morvane {
namespace {

constexpr uchar kFirstFrame = 0xC0;  // baseline, extended and progressive
constexpr uchar kLastColourFrame = 0xC2;
constexpr uchar kTables = 0xC4;
constexpr uchar kLastFrame = 0xCF;
constexpr uchar kRestart0 = 0xD0;
constexpr uchar kStart = 0xD8;
constexpr uchar kEnd = 0xD9;
constexpr uchar kScan = 0xDA;
constexpr uchar kFirstApplication = 0xE0;
constexpr uchar kNotes = 0xE1;
constexpr uchar kProfile = 0xE2;
constexpr uchar kAdobe = 0xEE;
constexpr uchar kLastApplication = 0xEF;
constexpr uchar kComment = 0xFE;
constexpr uchar kFill = 0xFF;
constexpr int kMostSegments = 1000;  // before the pixels of a plain file
const QByteArray kExif("Exif\0\0", 6);

// Restarts and the start of the picture stand alone; all else from C0 on has its length behind it.
bool HasLength(uchar marker) {
  return marker >= kFirstFrame && (marker < kRestart0 || marker > kStart);
}

bool IsFrame(uchar marker) {
  return marker >= kFirstFrame && marker <= kLastColourFrame;
}

bool HoldsThreeColours(const QByteArray& frame) {
  constexpr int kComponents = 6;  // each of three bytes, its number first
  return frame.size() == kComponents + 3 * 3 && frame.at(0) == 8 && frame.at(5) == 3 && frame.at(6) == 1 &&
         frame.at(9) == 2 && frame.at(12) == 3;
}

QSize SizeIn(const QByteArray& frame) {
  return {qFromBigEndian<quint16>(frame.constData() + 3), qFromBigEndian<quint16>(frame.constData() + 1)};
}

// How the camera was held: an entry of the first directory of its notes. Reading past their end gives zeros.
QImageIOHandler::Transformations RotationIn(const QByteArray& notes) {
  constexpr quint32 kHeader = 8;
  constexpr quint16 kOrientation = 0x0112;
  using Handler = QImageIOHandler;
  constexpr std::array<Handler::Transformation, 9> kMeanings = {
      Handler::TransformationNone,     Handler::TransformationNone,
      Handler::TransformationMirror,   Handler::TransformationRotate180,
      Handler::TransformationFlip,     Handler::TransformationFlipAndRotate90,
      Handler::TransformationRotate90, Handler::TransformationMirrorAndRotate90,
      Handler::TransformationRotate270};
  const QByteArray bytes = notes.mid(kExif.size());
  QDataStream stream(bytes);
  if (bytes.startsWith("II")) stream.setByteOrder(QDataStream::LittleEndian);
  quint32 order = 0;
  quint32 directory = 0;
  quint16 entries = 0;
  stream >> order >> directory;
  if (directory < kHeader || directory > bytes.size()) return {};
  stream.skipRawData(static_cast<int>(directory - kHeader));
  for (stream >> entries; entries > 0 && !stream.atEnd(); --entries) {
    quint16 tag = 0;
    quint16 type = 0;
    quint32 count = 0;
    quint16 value = 0;
    quint16 unused = 0;
    stream >> tag >> type >> count >> value >> unused;
    if (tag == kOrientation && value < kMeanings.size()) return kMeanings.at(value);
  }
  return {};
}

bool IsSrgb(const QByteArray& profile) {
  constexpr int kHead = 14;  // a name, and which part of how many this is
  if (!profile.startsWith("ICC_PROFILE")) return true;
  if (profile.size() < kHead || profile.at(kHead - 1) != 1) return false;
  return QColorSpace::fromIccProfile(profile.mid(kHead)) == QColorSpace::SRgb;
}

enum class Segment { OfThePicture, OfTheCamera, NotPlain };

Segment KindOf(uchar marker, const QByteArray& content) {
  constexpr int kTransform = 11;  // 1: luminance and two differences of colour
  const auto plainIf = [](bool plain, Segment kind) { return plain ? kind : Segment::NotPlain; };
  if (marker == kAdobe) {
    return plainIf(content.size() > kTransform && content.at(kTransform) == 1, Segment::OfThePicture);
  }
  if (marker == kProfile) return plainIf(IsSrgb(content), Segment::OfTheCamera);
  if (marker >= kFirstApplication && marker <= kLastApplication) return Segment::OfTheCamera;
  if (marker == kComment) return Segment::OfTheCamera;
  if (marker == kTables || marker > kLastFrame) return Segment::OfThePicture;
  return plainIf(IsFrame(marker) && HoldsThreeColours(content), Segment::OfThePicture);
}

// What stands before the pixels.
struct Head {
  QByteArray ofThePicture;
  qsizetype size;  // bytes in the file
  PlainJpeg tells;
};

// Nothing when the file is not plain.
std::optional<Head> HeadOf(const QByteArray& file) {
  if (!file.startsWith("\xFF\xD8")) return {};
  Head head{file.left(2), 2, {}};
  bool noted = false;
  for (int segment = 0; segment < kMostSegments; ++segment) {
    if (head.size + 4 > file.size() || file.at(head.size) != '\xFF') return {};
    const auto marker = static_cast<uchar>(file.at(head.size + 1));
    const qsizetype length = qFromBigEndian<quint16>(file.constData() + head.size + 2);
    if (marker == kScan) return head.tells.size.isEmpty() ? std::nullopt : std::optional(head);
    if (marker == kFill || !HasLength(marker) || length < 2) return {};
    const QByteArray content = file.mid(head.size + 4, length - 2);
    const Segment kind = KindOf(marker, content);
    if (kind == Segment::NotPlain) return {};
    if (IsFrame(marker)) head.tells.size = SizeIn(content);
    if (marker == kNotes && content.startsWith(kExif) && !std::exchange(noted, true))
      head.tells.rotation = RotationIn(content);
    if (kind == Segment::OfThePicture) head.ofThePicture += file.mid(head.size, 2 + length);
    head.size += 2 + length;
  }
  return {};
}

}  // namespace

std::optional<PlainJpeg> ReadPlainJpeg(const QByteArray& file) {
  const auto head = HeadOf(file);
  return head ? std::optional(head->tells) : std::nullopt;
}

// As the decoder goes: whatever stands between two markers is skipped, the data of a scan and garbage alike.
// A segment, such as one with a thumbnail, is skipped by its length.
JpegExtent ExtentOfJpeg(const QByteArray& bytes) {
  JpegExtent extent{bytes.size(), 0};
  qsizetype at = 0;
  while ((at = bytes.indexOf('\xFF', at)) >= 0 && at + 1 < bytes.size()) {
    const auto marker = static_cast<uchar>(bytes.at(++at));
    if (marker == 0xFF) continue;
    ++at;
    if (marker == kEnd) {
      extent.end = at;
      return extent;
    }
    if (marker == kScan) ++extent.scans;
    if (!HasLength(marker)) continue;
    if (at + 2 > bytes.size()) return extent;
    at += std::max<qsizetype>(2, qFromBigEndian<quint16>(bytes.constData() + at));
  }
  return extent;
}

}  // namespace Morvane
