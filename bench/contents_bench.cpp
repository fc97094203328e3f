#include <benchmark/benchmark.h>
#include <malloc.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "tests/support/test_machine.h"
#include "windows/contents/folder_scan.h"
#include "windows/contents/frm_preview.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;

constexpr int kFilesInEach = 50;
constexpr int kFoldersInEach = 50;

void WriteFiles(const fs::path& folder, int count) {
  fs::create_directories(folder);
  for (int i = 0; i < count; ++i) std::ofstream(folder / ("Brano numero " + std::to_string(i) + ".mp3"));
}

// C:\Disco with so many files, 50 to a folder and 50 folders to a folder.
struct Disc {
  TestMachine machine;
  const fs::path folder = machine.Root.Path() + "/Disco";

  explicit Disc(std::int64_t files) {
    for (std::int64_t i = 0; i < files / kFilesInEach; ++i) {
      const fs::path top = folder / ("Autore " + std::to_string(i / kFoldersInEach));
      WriteFiles(top / ("Disco " + std::to_string(i)), kFilesInEach);
    }
  }
};

// Made once for all benchmarks: that takes much longer than to read it.
Disc& DiscOf(std::int64_t files) {
  static std::map<std::int64_t, Disc> discs;
  return discs.try_emplace(files, files).first->second;
}

void PlainWalk(benchmark::State& run) {
  const Disc& disc = DiscOf(run.range(0));
  for (auto _ : run) {
    int files = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(disc.folder)) {
      files += entry.is_regular_file() ? 1 : 0;
    }
    benchmark::DoNotOptimize(files);
  }
}
BENCHMARK(PlainWalk)->Arg(100)->Arg(1000)->Arg(10000)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);

void FolderScan(benchmark::State& run) {
  Disc& disc = DiscOf(run.range(0));
  AppState state;
  Listing list;
  const Platform& machine = disc.machine.platform;
  for (auto _ : run) {
    state.ElencoRighe = 0;
    FindSubFolders("C:\\Disco", state, {machine.files, machine.screen, machine.windows}, list);
  }
  run.counters["lines"] = static_cast<double>(list.ListCount());
}
BENCHMARK(FolderScan)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(50000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);

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

// Folders in each other, 3 files in each: at 40 more than 10^12 lines.
void ReadDeepDisc(benchmark::State& run) {
  OpenWindow open;
  fs::path folder = open.machine.Root.Path() + "/Fondo";
  for (std::int64_t depth = 0; depth < run.range(0); ++depth) WriteFiles(folder /= "dentro", 3);
  for (auto _ : run) open.Read("C:\\Fondo");
  run.counters["lines"] = static_cast<double>(open.window.List1.ListCount());
  const std::size_t before = mallinfo2().uordblks;
  open.window.List1.Clear();
  run.counters["list_bytes"] = static_cast<double>(before - mallinfo2().uordblks);
}
BENCHMARK(ReadDeepDisc)->Arg(1)->Arg(10)->Arg(20)->Arg(30)->Arg(40)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace Morvane
