#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QPushButton>
#include <QTimer>

#include "platform/drawing/printer.h"
#include "platform/qt/painting/qt_font_catalog.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/printing/qt_printers.h"
#include "platform/runtime_error.h"
#include "platform/units.h"
#include "tests/support/private_cups.h"
#include "tests/support/sheet_measure.h"

namespace Morvane {

// The program's printers as they are, used by a person at their dialogs.
class PrintingTest : public testing::Test {
 protected:
  // Does `act` in the dialog that opens next.
  template <typename Dialog = QDialog, typename Act>
  static void InNext(Act act) {
    QTimer::singleShot(0, qApp, [act] {
      QWidget* const open = QApplication::activeModalWidget();
      auto* const dialog = dynamic_cast<Dialog*>(open);
      EXPECT_TRUE(dialog != nullptr) << "another dialog, or none";
      if (dialog != nullptr) return act(*dialog);
      if (open != nullptr) open->close();
    });
  }

  static void Press(const QWidget& dialog, const char* caption) {
    for (auto* button : dialog.findChildren<QPushButton*>())
      if (button->text().contains(caption)) return button->click();
    ADD_FAILURE() << "no button " << caption;
  }

  ProgramRun RunPrintProgram(const std::string& options) const {
    return RunProgram("'" MORVANE_PRINT "' " + options, folder_);
  }

  // The middles of lines, in mm: each in its place, and as far from the first as it must be.
  static void ExpectLines(const std::vector<double>& found, const std::vector<double>& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (size_t i = 0; i < found.size(); ++i) {
      EXPECT_NEAR(found[i], expected[i], kOriginMm);
      EXPECT_NEAR(found[i] - found[0], expected[i] - expected[0], kSizeMm);
    }
  }

  // Prints a disc's booklet with the disc in it, 10 mm and 20 mm from the origin.
  void PrintCover() {
    DrawingSurface& page = printer_.Surface();
    page.SetScaleMode(ScaleMode::Millimetres);
    page.Line(10, 20, 131, 140, LineStyle::Box);
    page.Circle(70.5, 80, 50, {}, 0.8);
    printer_.EndDoc();
  }

  const TemporaryFolder folder_;
  QtTextMetrics metrics_;
  QtFontCatalog fonts_;
  QtPrinters device_;
  Printer printer_{device_, metrics_, fonts_};
};

// What a printer leaves free at the edges of a sheet, and the sheet's height, in mm.
struct Area {
  double left, top, bottom, height;
};
constexpr Area kUneven{9.64 * kMmPerPoint, 17.97 * kMmPerPoint, 14.4 * kMmPerPoint, 297};

class QueueTest : public PrintingTest {
 protected:
  ~QueueTest() override {
    for (const char* folder : {".cups", "morvane"}) QDir(QDir::home().filePath(folder)).removeRecursively();
  }

  // Prints the cover and measures it on the sheet. What stands at the cross of the calibration, 20 mm from
  // the corner of what the printer reaches, is only shifted; lengths from there are scaled.
  void ExpectInPlace(const Area& area, PageOrientation orientation, const Calibration& paper = {}) {
    const auto across = [&](double x) {
      return area.left + 20 - paper.rightMm + (x - 20) * 180 / paper.acrossMm;
    };
    const auto down = [&](double y) {
      return area.top + 20 - paper.downwardsMm + (y - 20) * 250 / paper.downMm;
    };
    PrintCover();
    cups_.WaitForJobs();
    const MeasuredSheet sheet(cups_.SheetPath());
    if (orientation == PageOrientation::Portrait) {
      ExpectLines(sheet.AcrossMm(down(80)), {across(10), across(20.5), across(120.5), across(131)});
      ExpectLines(sheet.DownMm(across(70.5)), {down(20), down(40), down(120), down(140)});
    } else {  // turned to the left: its left edge is the sheet's lower one
      const double left = area.height - area.bottom - area.top;
      ExpectLines(sheet.AcrossMm(down(left - 70.5)), {across(20), across(40), across(120), across(140)});
      ExpectLines(sheet.DownMm(across(80)),
                  {down(left - 131), down(left - 120.5), down(left - 20.5), down(left - 10)});
    }
  }

  PrivateCups cups_;
};

}  // namespace Morvane
