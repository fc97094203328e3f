#include "platform/qt/pictures/jpeg.h"

#include <sys/mman.h>

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <memory>
// After <cstdio>, which it lacks.
#include <jpeglib.h>

#include "platform/qt/pictures/pixel_average.h"

namespace Morvane {
namespace {

constexpr int kSheetQuality = 94;  // of 100; what the toolkit takes for sheets, too

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

// Tens of megabytes, as a sheet's pictures have, are handed out quicker in large pages than in small ones. A
// wish: what becomes of it changes nothing else.
void WishForLargePages(QImage& image) {
  constexpr std::size_t kLargePage = std::size_t{2} << 20;
  void* start = image.bits();
  auto room = static_cast<std::size_t>(image.sizeInBytes());
  if (std::align(kLargePage, kLargePage, start, room) == nullptr) return;
  madvise(start, room / kLargePage * kLargePage, MADV_HUGEPAGE);
}

// Tells the size, too, so that a part of the image does not pass for the whole.
QString KeyOf(const QImage& image) {
  return QString("jpeg %1x%2").arg(image.width()).arg(image.height());
}

}  // namespace

QImage DecodeJpeg(const QByteArray& file, QSize fileSize, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  if (image.isNull()) return image;
  WishForLargePages(image);
  const int part = PartToDecode(fileSize, size);
  return DecodeRows(file, part, PartOf(fileSize, part), image) ? image : QImage();
}

QByteArray EncodeJpeg(const QImage& image) {
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
  jpeg_set_quality(&encoder, kSheetQuality, TRUE);
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

}  // namespace Morvane
