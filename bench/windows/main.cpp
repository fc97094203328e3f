#include <benchmark/benchmark.h>

#include <QApplication>

#include "platform/qt/painting/qt_font_catalog.h"
#include "tests/support/private_cups.h"

// Benchmarks of windows, without a screen and without the machine's printers.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const Morvane::TemporaryFolder own;
  Morvane::PrivateCups::ChooseSocket(own.Path());
  const QApplication application(argc, argv);
  Morvane::InstallFontStandIns();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
