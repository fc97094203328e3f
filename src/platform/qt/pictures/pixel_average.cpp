#include "platform/qt/pictures/pixel_average.h"

#include <algorithm>
#include <cstring>

// Compiled twice, of which the program takes the wider form where the processor has it.
#if defined(__x86_64__) && !defined(MORVANE_SANITIZE)
#define MORVANE_WIDER __attribute__((target_clones("avx2", "default")))
#else
#define MORVANE_WIDER
#endif

namespace Morvane {
namespace {

constexpr int kWhole = 256;

// Where a pixel of the larger side begins on the smaller one, in 256ths of a pixel.
int PlaceOf(int pixel, int from, int to) {
  return static_cast<int>((std::int64_t{pixel} * to * kWhole + from / 2) / from);
}

MORVANE_WIDER void AddWeighted(std::uint16_t* sums, const std::uint8_t* row, std::size_t count, int weight) {
  for (std::size_t i = 0; i < count; ++i) sums[i] = static_cast<std::uint16_t>(sums[i] + row[i] * weight);
}

MORVANE_WIDER void Round(std::uint16_t* sums, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    sums[i] = static_cast<std::uint16_t>((sums[i] + kWhole / 2) / kWhole);
}

}  // namespace

PixelAverage::PixelAverage(QSize from, QImage& to)
    : from_(from),
      to_(to),
      taps_(std::min(from.width(), from.width() / to.width() + 2)),
      sums_(std::size_t{4} * static_cast<std::size_t>(from.width())) {
  int pixel = 0;
  for (int x = 0; x < to.width(); ++x) {
    const int begin = x * kWhole;
    const int end = begin + kWhole;
    while (PlaceOf(pixel + 1, from.width(), to.width()) <= begin) ++pixel;
    const int first = std::min(pixel, from.width() - taps_);
    first_.push_back(first);
    for (int tap = first; tap < first + taps_; ++tap) {
      const int left = std::max(begin, PlaceOf(tap, from.width(), to.width()));
      const int right = std::min(end, PlaceOf(tap + 1, from.width(), to.width()));
      weights_.push_back(static_cast<std::uint16_t>(std::max(right - left, 0)));
    }
  }
}

void PixelAverage::Add(const std::uint8_t* row) {
  int begin = PlaceOf(rows_, from_.height(), to_.height());
  const int end = PlaceOf(++rows_, from_.height(), to_.height());
  while (begin < end) {
    const int edge = std::min(end, (finished_ + 1) * kWhole);
    AddWeighted(sums_.data(), row, sums_.size(), edge - begin);
    begin = edge;
    if (edge == (finished_ + 1) * kWhole) Finish();
  }
}

// The four bytes of a pixel are four lanes of one number, wide enough for a byte 256 times as large, so that
// one multiplication is for all of them.
void PixelAverage::Finish() {
  constexpr std::uint64_t kHalf = 0x0080008000800080;
  Round(sums_.data(), sums_.size());
  auto* pixel = reinterpret_cast<QRgb*>(to_.scanLine(finished_++));
  const int taps = taps_;
  const std::uint16_t* weight = weights_.data();
  for (const int first : first_) {
    const std::uint16_t* from = sums_.data() + std::ptrdiff_t{4} * first;
    std::uint64_t lanes = kHalf;
    for (int tap = 0; tap < taps; ++tap, from += 4) {
      std::uint64_t bytes = 0;
      std::memcpy(&bytes, from, sizeof bytes);
      lanes += bytes * *weight++;
    }
    lanes = lanes >> 8 & 0x00FF00FF00FF00FF;
    lanes |= lanes >> 8;
    *pixel++ = static_cast<QRgb>((lanes & 0xFFFF) | (lanes >> 16 & 0xFFFF0000));
  }
  std::fill(sums_.begin(), sums_.end(), 0);
}

}  // namespace Morvane
