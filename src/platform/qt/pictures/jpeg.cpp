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

}  // namespace

QImage DecodeJpeg(const QByteArray& file, QSize fileSize, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  if (image.isNull()) return image;
  WishForLargePages(image);
  const int part = PartToDecode(fileSize, size);
  return DecodeRows(file, part, PartOf(fileSize, part), image) ? image : QImage();
}

}  // namespace Morvane
