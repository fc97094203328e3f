#pragma once

#include <QApplication>
#include <QWidget>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "core/app_state.h"
#include "platform/qt/desktop/qt_window_system.h"
#include "platform/qt/painting/qt_font_catalog.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/printing/qt_printers.h"
#include "platform/units.h"
#include "tests/support/test_machine.h"

namespace Morvane {

// A machine of the tests with the real windows, fonts and pictures. It has no printer, so its sheet is A4;
// photos lie in C:\Foto.
class WindowMachine {
 public:
  TestMachine machine;
  QtWindowSystem windows{*machine.Files};
  QtPictureLoader pictures{*machine.Files, {}};
  QtTextMetrics text;
  QtFontCatalog fonts;
  QtPrinters device;
  Printer printer{device, text, fonts};
  Platform platform{windows, machine.TheScreen, *machine.Files,   pictures,     text,
                    fonts,   printer,           machine.Launches, machine.Http, machine.platform.app};

  explicit WindowMachine(const std::string& photoFolder) {
    std::filesystem::create_directory_symlink(photoFolder, machine.Root.Path() + "/Foto");
  }

  static QWidget& Widget(const std::string& window, const std::string& name) {
    for (QWidget* const top : QApplication::topLevelWidgets()) {
      if (top->objectName().toStdString() != window) continue;
      if (name.empty()) return *top;
      if (auto* const found = top->findChild<QWidget*>(QString::fromStdString(name))) return *found;
    }
    throw std::logic_error("no widget " + name);
  }

  // What waits to be done and painted is.
  static void Settle(QWidget& painted) {
    QApplication::processEvents();
    painted.repaint();
  }
};

// Covers of equal size that fill a portrait A4 sheet in rows of ten.
inline void FillSheet(LayoutTables& tables, int covers) {
  constexpr double kWide = 210.0 / 10 / 25.4;
  constexpr double kHigh = 297.0 / 10 / 25.4;
  tables.Orientamento = 0;
  tables.NumCopertine = static_cast<std::int16_t>(covers);
  for (int i = 0; i < covers; ++i) {
    const auto n = static_cast<std::size_t>(i + 1);
    tables.CopForma[n] = 0;
    tables.CopLarg[n] = 1.9;
    tables.CopAlte[n] = 2.7;
    tables.CopDistx[n] = kWide * (i % 10);
    tables.CopDisty[n] = kHigh * static_cast<double>(i / 10);
  }
}

}  // namespace Morvane
