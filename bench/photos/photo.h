#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Morvane {

struct PhotoSize {
  int width;   // pixels
  int height;  // pixels
};

// 3:2, as near to so many millions of pixels as can be.
PhotoSize PhotoOf(double megapixels);

// A made-up photo: slow changes of colour under the grain of a sensor, so that 24 megapixels are about 10 MB
// of JPEG. Another seed gives another photo. std::runtime_error when it cannot be written.
void WritePhoto(const std::string& path, PhotoSize size, std::uint32_t seed);

// Decodes a JPEG at that many eighths of its size, row by row to nowhere; the sum of one byte a row, so that
// nothing is left out.
std::size_t DecodeToNowhere(const std::string& path, unsigned eighths = 8);

}  // namespace Morvane
