#pragma once

#include <QBitmap>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QRegion>
#include <QTransform>
#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/qt/pictures/picture_limits.h"
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
    QProcess renderer;
    renderer.start("sh", {"-c",
                          "pdftoppm -gray -r 600 \"$0\" || sed -n '/%!PS/,$p' \"$0\" | "
                          "gs -q -dBATCH -dNOPAUSE -sDEVICE=pgmraw -sOutputFile=- -r600 -",
                          QString::fromStdString(path)});
    renderer.waitForFinished(-1);
    QImageReader::setAllocationLimit(PictureLimits::kDecodedMegabytes);
    if (!page_.loadFromData(renderer.readAllStandardOutput(), "PGM"))
      throw std::runtime_error("no page in " + path);
  }

  bool IsOnItsSide() const { return page_.width() > page_.height(); }

  // The middles of the dark lines that are met along a row or a column, in mm from the left or the top.
  std::vector<double> AcrossMm(double yMm) const {
    return Lines(page_.width(), [&](int x) { return Ink(x, DotAt(yMm)); });
  }
  std::vector<double> DownMm(double xMm) const {
    return Lines(page_.height(), [&](int y) { return Ink(DotAt(xMm), y); });
  }

  // The box that holds all that is dark.
  QRectF InkMm() const {
    const QRegion ink(QBitmap::fromImage(page_, Qt::ThresholdDither));
    return QTransform::fromScale(kMmPerDot, kMmPerDot).mapRect(QRectF(ink.boundingRect()));
  }

 private:
  static constexpr double kMmPerDot = kMillimetresPerInch / 600;
  static constexpr double kFaint = 100;  // of a dot of 255; the ink of a line is more, all over its breadth

  static int DotAt(double mm) { return static_cast<int>(std::lround(mm / kMmPerDot)); }
  int Ink(int x, int y) const { return 255 - qGray(page_.pixel(x, y)); }

  template <typename InkAt>
  static std::vector<double> Lines(int count, InkAt inkAt) {
    std::vector<double> middles;
    double weight = 0, moment = 0;
    for (int dot = 0; dot <= count; ++dot) {
      const int ink = dot < count ? inkAt(dot) : 0;
      weight += ink;
      moment += ink * (dot + 0.5);
      if (ink > 0) continue;
      if (weight > kFaint) middles.push_back(moment / weight * kMmPerDot);
      weight = moment = 0;
    }
    return middles;
  }

  QImage page_;
};

}  // namespace Morvane
