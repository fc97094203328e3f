#pragma once

#include <string>
#include <utility>
#include <vector>

namespace Morvane {

// A sheet of paper as a scanner would see it.
class MeasuredSheet {
 public:
  // Renders the first page of a PDF file.
  explicit MeasuredSheet(const std::string& pdfPath);
  // Of dots at 600 to the inch, row by row; 255 is white.
  MeasuredSheet(int width, int height, std::vector<unsigned char> gray)
      : width_(width), height_(height), gray_(std::move(gray)) {}

  int WidthDots() const { return width_; }
  int HeightDots() const { return height_; }

  // The middles of the dark lines that are met along a row or a column, in mm from the left or the top.
  std::vector<double> AcrossMm(double yMm) const;
  std::vector<double> DownMm(double xMm) const;

 private:
  std::vector<double> Lines(int start, int step, int count) const;

  int width_ = 0;
  int height_ = 0;
  std::vector<unsigned char> gray_;
};

}  // namespace Morvane
