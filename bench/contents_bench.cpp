#include <benchmark/benchmark.h>
#include <malloc.h>

#include <filesystem>
#include <fstream>

#include "contents/folder_scan.h"
#include "contents/frm_preview.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;

constexpr int kTopFolders = 40;
constexpr int kFoldersInEach = 49;
constexpr int kFilesInEach = 50;

void WriteFiles(const fs::path& folder, int count) {
  fs::create_directories(folder);
  for (int i = 0; i < count; ++i) std::ofstream(folder / ("Brano numero " + std::to_string(i) + ".mp3"));
}

// C:\Disco with 2,000 folders of 50 files.
class BigDisc : public benchmark::Fixture {
 public:
  void SetUp(benchmark::State&) override {
    if (machine) return;
    machine = std::make_unique<TestMachine>();
    disc = machine->Root.Path() + "/Disco";
    for (int top = 0; top < kTopFolders; ++top) {
      const fs::path folder = disc / ("Autore " + std::to_string(top));
      WriteFiles(folder, kFilesInEach);
      for (int i = 0; i < kFoldersInEach; ++i) {
        WriteFiles(folder / ("Disco " + std::to_string(i)), kFilesInEach);
      }
    }
  }

 protected:
  std::unique_ptr<TestMachine> machine;
  fs::path disc;
};

BENCHMARK_DEFINE_F(BigDisc, PlainWalk)(benchmark::State& run) {
  for (auto _ : run) {
    int files = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(disc)) {
      files += entry.is_regular_file() ? 1 : 0;
    }
    benchmark::DoNotOptimize(files);
  }
}
BENCHMARK_REGISTER_F(BigDisc, PlainWalk)->Unit(benchmark::kMillisecond);

BENCHMARK_DEFINE_F(BigDisc, FolderScan)(benchmark::State& run) {
  AppState state;
  Listing list;
  for (auto _ : run) {
    state.ElencoRighe = 0;
    FindSubFolders("C:\\Disco", state, machine->platform, list);
  }
  run.counters["lines"] = static_cast<double>(list.ListCount());
}
BENCHMARK_REGISTER_F(BigDisc, FolderScan)->Unit(benchmark::kMillisecond);

// The contents window, opened.
struct OpenWindow {
  TestMachine machine;
  AppState state;
  FrmPreview window{state, machine.platform, {[] {}, [] { return std::string("ok"); }}};

  OpenWindow() { window.form.BeginShow(); }
  void Read(const std::string& folder) {
    machine.Windows.Folders.push_back(folder);
    window.Command2.PerformClick();
  }
};

// 40 folders in each other, 3 files in each: more than 10^12 lines.
void ReadDeepDisc(benchmark::State& run) {
  OpenWindow open;
  fs::path folder = open.machine.Root.Path() + "/Fondo";
  for (int depth = 0; depth < 40; ++depth) WriteFiles(folder /= "dentro", 3);
  for (auto _ : run) open.Read("C:\\Fondo");
  run.counters["lines"] = static_cast<double>(open.window.List1.ListCount());
  const std::size_t before = mallinfo2().uordblks;
  open.window.List1.Clear();
  run.counters["list_bytes"] = static_cast<double>(before - mallinfo2().uordblks);
}
BENCHMARK(ReadDeepDisc)->Unit(benchmark::kMillisecond);

// One keystroke in the title, with both panels full.
void RedrawAtKeystroke(benchmark::State& run) {
  OpenWindow open;
  const fs::path disc = open.machine.Root.Path() + "/Disco";
  for (int i = 0; i < 60; ++i) WriteFiles(disc / ("Disco " + std::to_string(i)), 20);
  open.Read("C:\\Disco");
  open.state.ElencoFontSize = 4;
  open.window.Option1.back().PerformClick();
  bool longer = false;
  for (auto _ : run) open.window.Text1.SetText((longer = !longer) ? "Titolo CDa" : "Titolo CD");
  run.counters["shapes"] = static_cast<double>(open.window.Picture1.Surface.Drawing().size());
}
BENCHMARK(RedrawAtKeystroke)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace Morvane
