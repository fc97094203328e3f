#pragma once

#include <QDoubleSpinBox>
#include <QLabel>
#include <QWidget>
#include <array>
#include <functional>
#include <iterator>

#include "platform/qt/printing/calibration.h"

namespace Morvane {

// The tab of the print dialog where a printer's paper is put right. What is typed is kept at once, or refused
// with a line that tells why.
class CalibrationTab : public QWidget {
 public:
  // `printSheet` prints the calibration sheet at the printer shown; RuntimeError when it cannot.
  CalibrationTab(Calibrations& calibrations, std::function<void(const QString& printer)> printSheet);

  void ShowPrinter(const QString& printer);

 private:
  void Fill(const Calibration& calibration);
  void Keep();
  void Try(const std::function<void()>& step);

  Calibrations& calibrations_;
  QString printer_;
  std::array<QDoubleSpinBox*, std::size(kCalibrationFields)> fields_;
  QLabel* message_;
};

}  // namespace Morvane
