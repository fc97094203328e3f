#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>

#include "core/app_state.h"
#include "core/layout_reader.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

// C:\Cento.mvne, a layout of 100 covers.
struct LayoutDisk {
  TestMachine machine;

  LayoutDisk() {
    std::string text = "Pagina=0\r\n";
    for (int i = 0; i < kMaxCovers; ++i) {
      const std::string n = std::to_string(i + 1);
      text += "Copertina" + n + "=0\r\nDistx" + n + "=" + std::to_string(i % 10 * 21) + ".5\r\nDisty" + n +
              "=" + std::to_string(i / 10 * 29) + ".7\r\nLarg" + n + "=19.1\r\nAlte" + n + "=27.3\r\n";
    }
    machine.WriteFile("C:\\Cento.mvne", text);
  }
};

void ReadBytesOfLayout(benchmark::State& run) {
  const LayoutDisk disk;
  const std::string path = disk.machine.Root.Path() + "/Cento.mvne";
  std::array<char, 64 * 1024> bytes{};
  for (auto _ : run) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    while (::read(file, bytes.data(), bytes.size()) > 0) benchmark::DoNotOptimize(bytes);
    ::close(file);
  }
}
BENCHMARK(ReadBytesOfLayout)->Unit(benchmark::kMicrosecond);

void ReadLayoutOfHundredCovers(benchmark::State& run) {
  const LayoutDisk disk;
  AppState state;
  state.MaxCopertine = kMaxCovers;
  for (auto _ : run) ReadLayout(*disk.machine.Files->OpenForInput("C:\\Cento.mvne"), state);
  if (state.NumCopertine != kMaxCovers) run.SkipWithError("not read");
}
BENCHMARK(ReadLayoutOfHundredCovers)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace Morvane
