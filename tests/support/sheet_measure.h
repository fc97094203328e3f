#pragma once

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/units.h"

namespace Morvane {

// How exact a sheet must be, whatever the queue.
inline constexpr double kSizeMm = 0.05;
inline constexpr double kOriginMm = 0.10;
inline constexpr double kMmPerPoint = kMillimetresPerInch / 72;

// A sheet of paper as a scanner would see it.
class MeasuredSheet {
 public:
  // Renders the first page of a PDF file, or of the PostScript among a printer's own commands.
  explicit MeasuredSheet(const std::string& path) {
    const std::string command =
        IsPdf(path) ? "pdftoppm -gray -r 600 '" + path + "'"
                    : "sed -n '/%!PS/,$p' '" + path +
                          "' | gs -q -dBATCH -dNOPAUSE -sDEVICE=pgmraw -sOutputFile=- -r600 -";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    // A line of the renderer's own may stand behind the first.
    if (!pipe || std::fscanf(pipe.get(), "P5 #%*[^\n]") == EOF ||
        std::fscanf(pipe.get(), "%d %d 255", &width_, &height_) != 2) {
      throw std::runtime_error("no page in " + path);
    }
    std::fgetc(pipe.get());
    gray_.resize(static_cast<size_t>(width_) * static_cast<size_t>(height_));
    if (std::fread(gray_.data(), 1, gray_.size(), pipe.get()) != gray_.size()) {
      throw std::runtime_error("half a page in " + path);
    }
  }

  int WidthDots() const { return width_; }
  int HeightDots() const { return height_; }

  // The middles of the dark lines that are met along a row or a column, in mm from the left or the top.
  std::vector<double> AcrossMm(double yMm) const { return Lines(DotAt(yMm) * width_, 1, width_); }
  std::vector<double> DownMm(double xMm) const { return Lines(DotAt(xMm), width_, height_); }

  // The corners of the box that holds all that is dark, in mm from the left and the top; all 0 on an empty
  // sheet.
  struct Box {
    double left = 0, top = 0, right = 0, bottom = 0;
  };
  Box InkMm() const {
    int left = 0, top = 0, right = width_, bottom = height_;
    while (top < bottom && !IsInk(left, top, right, top + 1)) ++top;
    while (top < bottom && !IsInk(left, bottom - 1, right, bottom)) --bottom;
    while (left < right && !IsInk(left, top, left + 1, bottom)) ++left;
    while (left < right && !IsInk(right - 1, top, right, bottom)) --right;
    return left == right ? Box() : Box{MmAt(left), MmAt(top), MmAt(right), MmAt(bottom)};
  }

 private:
  // Commands of the printer's own may stand in front.
  static bool IsPdf(const std::string& path) {
    std::string start(1024, ' ');
    std::ifstream(path, std::ios::binary).read(start.data(), 1024);
    return start.find("%PDF") != std::string::npos;
  }

  static constexpr int kDotsPerInch = 600;
  static constexpr int kWhite = 255;
  static constexpr int kDark = 100;  // paper is above it

  static int DotAt(double mm) {
    return static_cast<int>(std::lround(mm / kMillimetresPerInch * kDotsPerInch));
  }

  bool IsInk(int left, int top, int right, int bottom) const {
    for (int y = top; y < bottom; ++y)
      for (int x = left; x < right; ++x)
        if (kWhite - gray_[static_cast<size_t>(y) * static_cast<size_t>(width_) + static_cast<size_t>(x)] >
            kDark)
          return true;
    return false;
  }
  static double MmAt(double dots) { return dots / kDotsPerInch * kMillimetresPerInch; }

  std::vector<double> Lines(int start, int step, int count) const {
    std::vector<double> middles;
    double weight = 0;
    double moment = 0;
    bool dark = false;
    for (int dot = 0; dot <= count; ++dot) {
      const int ink = dot < count ? kWhite - gray_.at(static_cast<size_t>(start + dot * step)) : 0;
      dark = dark || ink > kDark;
      weight += ink;
      moment += ink * (dot + 0.5);
      if (ink > 0) continue;
      if (dark) middles.push_back(MmAt(moment / weight));
      weight = moment = 0;
      dark = false;
    }
    return middles;
  }

  int width_ = 0;
  int height_ = 0;
  std::vector<unsigned char> gray_;
};

}  // namespace Morvane
