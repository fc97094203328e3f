#pragma once

#include <QMap>
#include <QString>
#include <QTransform>

#include "platform/drawing/calibration_sheet.h"

namespace Morvane {

// How a printer's paper differs from what it was told, as the user measured it on the calibration sheet. The
// sheet is upright, as it comes out of the printer.
struct Calibration {
  double acrossMm = kCalibrationAcross;  // what the ruler across measures
  double downMm = kCalibrationDown;      // what the ruler down measures
  double rightMm = 0;                    // how far the cross lies too far right; negative: left
  double downwardsMm = 0;                // how far it lies too far down; negative: up

  bool operator==(const Calibration&) const = default;

  // Within the limits of each field.
  bool IsUsual() const;

  // Where to draw so that a place comes out right. In twips of the upright sheet, whose cross is at
  // `cross`: the place that comes out exactly, whatever the scale.
  QTransform Correction(QPointF cross) const;
};

// One of the four measures, in mm: the file's key, what exact paper measures, and how far off is believed.
struct CalibrationField {
  const char* key;
  double Calibration::*value;
  double exact;
  double most;
};

inline constexpr double kCalibrationPercent = 5;  // that a ruler may be off
inline constexpr double kCalibrationShift = 20;   // mm

inline constexpr CalibrationField kCalibrationFields[] = {
    {"orizzontale180", &Calibration::acrossMm, kCalibrationAcross,
     kCalibrationAcross* kCalibrationPercent / 100},
    {"verticale250", &Calibration::downMm, kCalibrationDown, kCalibrationDown* kCalibrationPercent / 100},
    {"destra", &Calibration::rightMm, 0, kCalibrationShift},
    {"basso", &Calibration::downwardsMm, 0, kCalibrationShift},
};

// The calibrations of this user's printers, in a file of their own.
class Calibrations {
 public:
  // At first morvane/taratura.ini in the user's configuration folder.
  explicit Calibrations(const QString& file = DefaultFile());

  // No correction for a printer that was not calibrated.
  Calibration Of(const QString& printer) const { return printers_.value(printer); }
  // RuntimeError PathFileAccess when it cannot be kept; it then holds until the program ends.
  void Keep(const QString& printer, const Calibration& calibration);

  // What the user must know of the file, once: that it is damaged, and nothing is corrected.
  QString TakeComplaint();

 private:
  static QString DefaultFile();
  void Read();

  QString file_;
  QMap<QString, Calibration> printers_;
  QString complaint_;
  bool damaged_ = false;
};

}  // namespace Morvane
