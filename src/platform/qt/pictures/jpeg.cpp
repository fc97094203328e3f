#include "platform/qt/pictures/jpeg.h"

#include <QColorSpace>
#include <QDataStream>
#include <QtEndian>
#include <array>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <utility>
// After <cstdio>, which it lacks.
#include <jpeglib.h>

#include "platform/qt/pictures/picture_limits.h"
#include "platform/qt/pictures/pixel_average.h"

namespace Morvane {
namespace {

constexpr uchar kFirstFrame = 0xC0;  // baseline, extended and progressive
constexpr uchar kLastColourFrame = 0xC2;
constexpr uchar kTables = 0xC4;
constexpr uchar kLastFrame = 0xCF;
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
    if (marker == kFill || !HasJpegLength(marker) || length < 2) return {};
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

// The library leaves its functions by a jump when it cannot go on; where it lands, everything that was made
// before the jump was prepared is still there.
struct Errors {
  jpeg_error_mgr manager;
  std::jmp_buf giveUp;
};

template <typename Codec>
void PrepareErrors(Codec& codec, Errors& errors) {
  codec.err = jpeg_std_error(&errors.manager);
  errors.manager.error_exit = [](j_common_ptr failed) {
    std::longjmp(reinterpret_cast<Errors*>(failed->err)->giveUp, 1);
  };
  errors.manager.output_message = [](j_common_ptr) {};
}

QSize PartOf(QSize size, int part) {
  return {(size.width() + part - 1) / part, (size.height() + part - 1) / part};
}

// A half, a quarter or an eighth is quicker to decode than the whole. It has to hold the size that is wanted.
int PartToDecode(QSize fileSize, QSize wanted) {
  for (const int part : {8, 4, 2}) {
    if (PartOf(fileSize, part).boundedTo(wanted) == wanted) return part;
  }
  return 1;
}

// Averages the whole picture into the image, decoded at one of so many parts of its size, which is `size`.
// False when the decoder gives up.
bool DecodeRows(const QByteArray& file, int part, QSize size, QImage& image) {
  PixelAverage average(size, image);
  std::vector<uchar> row(std::size_t{4} * static_cast<std::size_t>(size.width()));
  uchar* rows[] = {row.data()};
  Errors errors{};
  jpeg_decompress_struct decoder{};
  PrepareErrors(decoder, errors);
  const std::unique_ptr<jpeg_decompress_struct, void (*)(jpeg_decompress_struct*)> made(
      &decoder, jpeg_destroy_decompress);
  if (setjmp(errors.giveUp) != 0) return false;
  jpeg_create_decompress(&decoder);
  jpeg_mem_src(&decoder, reinterpret_cast<const uchar*>(file.constData()),
               static_cast<unsigned long>(file.size()));
  jpeg_read_header(&decoder, TRUE);
  decoder.out_color_space = JCS_EXT_BGRA;
  decoder.scale_denom = static_cast<unsigned>(part);
  jpeg_start_decompress(&decoder);
  if (QSize(static_cast<int>(decoder.output_width), static_cast<int>(decoder.output_height)) != size) {
    return false;
  }
  while (decoder.output_scanline < decoder.output_height) {
    jpeg_read_scanlines(&decoder, rows, 1);
    average.Add(row.data());
  }
  jpeg_finish_decompress(&decoder);
  return true;
}

// Tells the size, too, so that a part of the image does not pass for the whole.
QString KeyOf(const QImage& image) {
  return QString("jpeg %1x%2").arg(image.width()).arg(image.height());
}

}  // namespace

std::optional<PlainJpeg> ReadPlainJpeg(const QByteArray& file) {
  const auto head = HeadOf(file);
  return head ? std::optional(head->tells) : std::nullopt;
}

QImage DecodeJpeg(const QByteArray& file, QSize fileSize, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  const int part = PartToDecode(fileSize, size);
  return !image.isNull() && DecodeRows(file, part, PartOf(fileSize, part), image) ? image : QImage();
}

QByteArray EncodeJpeg(const QImage& image, int quality) {
  const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
  uchar* bytes = nullptr;
  unsigned long size = 0;
  Errors errors{};
  jpeg_compress_struct encoder{};
  PrepareErrors(encoder, errors);
  std::unique_ptr<uchar*, void (*)(uchar**)> owned(&bytes, [](uchar** made) { std::free(*made); });
  const std::unique_ptr<jpeg_compress_struct, void (*)(jpeg_compress_struct*)> made(&encoder,
                                                                                    jpeg_destroy_compress);
  if (setjmp(errors.giveUp) != 0) {
    owned.release();  // the library may have freed them already
    return {};
  }
  jpeg_create_compress(&encoder);
  jpeg_mem_dest(&encoder, &bytes, &size);
  encoder.image_width = static_cast<JDIMENSION>(pixels.width());
  encoder.image_height = static_cast<JDIMENSION>(pixels.height());
  encoder.input_components = 4;
  encoder.in_color_space = JCS_EXT_BGRX;
  jpeg_set_defaults(&encoder);
  jpeg_set_quality(&encoder, quality, TRUE);
  jpeg_start_compress(&encoder, TRUE);
  while (encoder.next_scanline < encoder.image_height) {
    // The library's parameter is not const, though it only reads.
    auto* row = const_cast<uchar*>(pixels.constScanLine(static_cast<int>(encoder.next_scanline)));
    jpeg_write_scanlines(&encoder, &row, 1);
  }
  jpeg_finish_compress(&encoder);
  return {reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size)};
}

void CarryJpeg(QImage& image, const QByteArray& jpeg) {
  if (!jpeg.isEmpty()) image.setText(KeyOf(image), QString::fromLatin1(jpeg));
}

QByteArray CarriedJpeg(const QImage& image) {
  return image.text(KeyOf(image)).toLatin1();
}

QByteArray BarePicture(const QByteArray& jpeg) {
  const auto head = HeadOf(jpeg);
  const bool whole = jpeg.endsWith("\xFF\xD9");
  return head && whole ? head->ofThePicture + jpeg.mid(head->size) : QByteArray();
}

}  // namespace Morvane
