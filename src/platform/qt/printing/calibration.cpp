#include "platform/qt/printing/calibration.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/units.h"

namespace Morvane {
namespace {

// A queue's name may have a slash, which would make groups within groups.
QString GroupOf(const QString& printer) {
  return QString::fromLatin1(QUrl::toPercentEncoding(printer));
}

QString NameOf(const QString& group) {
  return QUrl::fromPercentEncoding(group.toLatin1());
}

}  // namespace

bool Calibration::IsUsual() const {
  return std::ranges::all_of(kCalibrationFields, [this](const CalibrationField& field) {
    return std::abs(this->*field.value - field.exact) <= field.most;
  });
}

QTransform Calibration::Correction(QPointF cross) const {
  return QTransform()
      .translate(cross.x(), cross.y())
      .scale(kCalibrationAcross / acrossMm, kCalibrationDown / downMm)
      .translate(-cross.x() - rightMm * kTwipsPerMillimetre, -cross.y() - downwardsMm * kTwipsPerMillimetre);
}

QString Calibrations::DefaultFile() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/morvane/taratura.ini";
}

Calibrations::Calibrations(const QString& file) : file_(file) {
  Read();
}

void Calibrations::Read() {
  QSettings settings(file_, QSettings::IniFormat);
  const QStringList groups = settings.childGroups();
  bool sound = settings.status() == QSettings::NoError && settings.childKeys().isEmpty() &&
               (QFileInfo(file_).size() == 0 || !groups.isEmpty());
  for (const QString& group : groups) {
    settings.beginGroup(group);
    Calibration read;
    for (const CalibrationField& field : kCalibrationFields) {
      bool number = false;
      read.*field.value = settings.value(field.key).toDouble(&number);
      sound = sound && number;
    }
    sound = sound && read.IsUsual();
    printers_.insert(NameOf(group), read);
    settings.endGroup();
  }
  damaged_ = !sound;
  if (sound) return;
  printers_.clear();
  complaint_ = "Il file della taratura è danneggiato: si stampa senza correzione.\n" + file_;
}

// Only this printer's lines are touched: another running program may have added others meanwhile.
void Calibrations::Keep(const QString& printer, const Calibration& calibration) {
  printers_.insert(printer, calibration);
  QDir().mkpath(QFileInfo(file_).path());
  QSettings settings(file_, QSettings::IniFormat);
  if (std::exchange(damaged_, false)) settings.clear();
  settings.beginGroup(GroupOf(printer));
  for (const CalibrationField& field : kCalibrationFields)
    settings.setValue(field.key, calibration.*field.value);
  settings.endGroup();
  settings.sync();
  if (settings.status() == QSettings::NoError) return;
  throw RuntimeError(ErrorNumber::PathFileAccess,
                     "Impossibile scrivere il file della taratura: " + file_.toStdString());
}

QString Calibrations::TakeComplaint() {
  return std::exchange(complaint_, QString());
}

}  // namespace Morvane
