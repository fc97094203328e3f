#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QDialog>
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
  static void ExpectLines(const std::vector<double>& found, const std::vector<double>& expected,
                          double sizeMm = kSizeMm) {
    ASSERT_EQ(found.size(), expected.size());
    for (size_t i = 0; i < found.size(); ++i) {
      EXPECT_NEAR(found[i], expected[i], kOriginMm);
      EXPECT_NEAR(found[i] - found[0], expected[i] - expected[0], sizeMm);
    }
  }

  const TemporaryFolder folder_;
  QtTextMetrics metrics_;
  QtFontCatalog fonts_;
  QtPrinters device_;
  Printer printer_{device_, metrics_, fonts_};
};

}  // namespace Morvane
