#pragma once

#include <QImage>
#include <QSize>
#include <cstdint>
#include <vector>

namespace Morvane {

// Makes an image smaller while its rows come in, one by one, so that the whole of it is never held: each
// pixel becomes the average of the pixels that it takes the place of, to a 256th of their part in it.
class PixelAverage {
 public:
  // Rows of `from`, of four bytes a pixel, become `to`, an image of 32 bits that is no larger, either way. It
  // must outlive this object.
  PixelAverage(QSize from, QImage& to);

  // The next row. As many as `from` is high, no more.
  void Add(const std::uint8_t* row);

 private:
  void Finish();

  const QSize from_;
  QImage& to_;
  const int taps_;                      // pixels of a row of `from` that a pixel of `to` is made of, at most
  std::vector<int> first_;              // the first of them, for each pixel of a row of `to`
  std::vector<std::uint16_t> weights_;  // of all of them; those of one pixel make 256
  std::vector<std::uint16_t> sums_;     // of the rows so far: each byte up to 256 times as large
  int rows_ = 0;                        // that have come
  int finished_ = 0;                    // rows of `to`
};

}  // namespace Morvane
