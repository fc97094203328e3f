#include "bench/photos/photo.h"

#include <cmath>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <vector>

#include <jpeglib.h>

namespace Morvane {

namespace {

constexpr int kQuality = 90;
constexpr int kGrain = 44;  // shades that neighbours differ by at most

using File = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

File Open(const std::string& path, const char* mode) {
  File file(std::fopen(path.c_str(), mode), &std::fclose);
  if (!file) throw std::runtime_error("cannot open " + path);
  return file;
}

void FillRow(std::vector<JSAMPLE>& row, int y, std::uint32_t& grain) {
  const double height = 50 * std::sin(y / 310.0);
  for (std::size_t x = 0; x < row.size() / 3; ++x) {
    grain = grain * 1664525U + 1013904223U;
    const double light = 128 + height + 40 * std::sin(static_cast<double>(x) / 430.0) +
                         static_cast<double>(grain >> 24) * kGrain / 255 - kGrain / 2.0;
    row[3 * x] = static_cast<JSAMPLE>(light);
    row[3 * x + 1] = static_cast<JSAMPLE>(light * 0.9);
    row[3 * x + 2] = static_cast<JSAMPLE>(light * 0.7);
  }
}

}  // namespace

PhotoSize PhotoOf(double megapixels) {
  const double unit = std::sqrt(megapixels * 1e6 / 6);
  return {static_cast<int>(std::lround(3 * unit)), static_cast<int>(std::lround(2 * unit))};
}

void WritePhoto(const std::string& path, PhotoSize size, std::uint32_t seed) {
  const File file = Open(path, "wb");
  jpeg_error_mgr errors{};
  jpeg_compress_struct jpeg{};
  jpeg.err = jpeg_std_error(&errors);
  jpeg_create_compress(&jpeg);
  jpeg_stdio_dest(&jpeg, file.get());
  jpeg.image_width = static_cast<JDIMENSION>(size.width);
  jpeg.image_height = static_cast<JDIMENSION>(size.height);
  jpeg.input_components = 3;
  jpeg.in_color_space = JCS_RGB;
  jpeg_set_defaults(&jpeg);
  jpeg_set_quality(&jpeg, kQuality, TRUE);
  jpeg_start_compress(&jpeg, TRUE);
  std::vector<JSAMPLE> row(3 * static_cast<std::size_t>(size.width));
  JSAMPROW rows[] = {row.data()};
  for (int y = 0; y < size.height; ++y) {
    FillRow(row, y, seed);
    jpeg_write_scanlines(&jpeg, rows, 1);
  }
  jpeg_finish_compress(&jpeg);
  jpeg_destroy_compress(&jpeg);
}

std::size_t DecodeToNowhere(const std::string& path, unsigned eighths) {
  const File file = Open(path, "rb");
  jpeg_error_mgr errors{};
  jpeg_decompress_struct jpeg{};
  jpeg.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&jpeg);
  jpeg_stdio_src(&jpeg, file.get());
  jpeg_read_header(&jpeg, TRUE);
  jpeg.scale_num = eighths;
  jpeg.scale_denom = 8;
  jpeg_start_decompress(&jpeg);
  std::vector<JSAMPLE> row(static_cast<std::size_t>(jpeg.output_width) *
                           static_cast<std::size_t>(jpeg.output_components));
  JSAMPROW rows[] = {row.data()};
  std::size_t sum = 0;
  while (jpeg.output_scanline < jpeg.output_height) {
    jpeg_read_scanlines(&jpeg, rows, 1);
    sum += row[0];
  }
  jpeg_finish_decompress(&jpeg);
  jpeg_destroy_decompress(&jpeg);
  return sum;
}

}  // namespace Morvane
