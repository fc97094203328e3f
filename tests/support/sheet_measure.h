#pragma once

#include <string>
#include <vector>

namespace Morvane {

// A sheet of paper as a scanner would see it.
class MeasuredSheet {
 public:
  // Renders the first page of a PDF file.
  explicit MeasuredSheet(const std::string& pdfPath);

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
