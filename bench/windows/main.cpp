#include <benchmark/benchmark.h>

#include <QApplication>

#include "tests/support/private_cups.h"

// Benchmarks of windows, without a screen and without the machine's printers.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const Morvane::TemporaryFolder own;
  Morvane::PrivateCups::ChooseSocket(own.Path());
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
