#include "platform/drawing/calibration_sheet.h"

#include <cmath>
#include <string>

namespace Morvane {
namespace {

// All in millimetres.
constexpr double kRulersAt = 10;
constexpr double kLongMark = 4;
constexpr double kArm = 2.5;  // of a cross
constexpr double kTextLeft = 40;
constexpr double kTextTop = 60;
constexpr double kLineHeight = 6;

double MarkLength(int millimetre) {
  if (millimetre % 10 == 0) return kLongMark;
  return millimetre % 5 == 0 ? 3 : 2;
}

void Write(DrawingSurface& sheet, double left, double top, const std::string& text) {
  sheet.CurrentX = left;
  sheet.CurrentY = top;
  sheet.Print(text);
}

void DrawRulers(DrawingSurface& sheet) {
  sheet.SetFontSize(6);
  const double height = sheet.TextHeight("0");
  sheet.Line(kRulersAt, kRulersAt, kRulersAt + kCalibrationAcross, kRulersAt);
  for (int mm = 0; mm <= kCalibrationAcross; ++mm) {
    const double at = kRulersAt + mm;
    const std::string number = std::to_string(mm);
    sheet.Line(at, kRulersAt, at, kRulersAt - MarkLength(mm));
    if (mm % 10 == 0) Write(sheet, at - sheet.TextWidth(number) / 2, kRulersAt - kLongMark - height, number);
  }
  sheet.Line(kRulersAt, kRulersAt, kRulersAt, kRulersAt + kCalibrationDown);
  for (int mm = 0; mm <= kCalibrationDown; ++mm) {
    const double at = kRulersAt + mm;
    const std::string number = std::to_string(mm) + " ";
    sheet.Line(kRulersAt, at, kRulersAt - MarkLength(mm), at);
    if (mm % 10 == 0 && mm > 0) {
      Write(sheet, kRulersAt - kLongMark - sheet.TextWidth(number), at - height / 2, number);
    }
  }
}

void DrawCross(DrawingSurface& sheet, double x, double y) {
  sheet.Line(x - kArm, y, x + kArm, y);
  sheet.Line(x, y - kArm, x, y + kArm);
}

// With one decimal and the comma of the language of the sheet.
std::string Tenths(double mm) {
  const long tenths = std::lround(mm * 10);
  return std::to_string(tenths / 10) + "," + std::to_string(tenths % 10);
}

}  // namespace

void DrawCalibrationSheet(DrawingSurface& sheet, double left, double top, double widthMm, double heightMm) {
  sheet.SetScaleMode(ScaleMode::Millimetres);
  sheet.SetFontName("Arial");
  DrawRulers(sheet);
  for (const double x : {kCalibrationCross, widthMm - kCalibrationCross}) {
    for (const double y : {kCalibrationCross, heightMm - kCalibrationCross}) DrawCross(sheet, x, y);
  }
  sheet.SetFontSize(9);
  const std::string lines[] = {
      "1. Misura la riga orizzontale da 0 a " + std::to_string(kCalibrationAcross) +
          " e quella verticale da 0 a " + std::to_string(kCalibrationDown) + ", in millimetri.",
      "2. Misura dove sta la croce in alto a sinistra: previsti " + Tenths(left + kCalibrationCross) +
          " mm da sinistra e " + Tenths(top + kCalibrationCross) + " mm dall'alto.",
      "3. Scrivi in Stampa, Taratura: le due misure, e quanto la croce è più a destra e più in basso.",
  };
  double y = kTextTop;
  for (const std::string& line : lines) {
    Write(sheet, kTextLeft, y, line);
    y += kLineHeight;
  }
}

}  // namespace Morvane
