#include <benchmark/benchmark.h>
#include <malloc.h>

#include <filesystem>
#include <fstream>

#include "bench/files/kept_folder.h"
#include "tests/support/test_machine.h"
#include "windows/contents/folder_scan.h"
#include "windows/contents/frm_preview.h"

namespace Morvane {
namespace {

namespace fs = std::filesystem;

constexpr int kFiles = 100'000;
constexpr int kFilesInEach = 50;
constexpr int kFoldersInEach = 50;
constexpr int kDepth = 40;

void WriteFiles(const fs::path& folder, int count) {
  fs::create_directories(folder);
  for (int i = 0; i < count; ++i) std::ofstream(folder / ("Brano numero " + std::to_string(i) + ".mp3"));
}

// 50 files to a folder and 50 folders to a folder.
std::string Disc() {
  return KeptFolder("disco-" + std::to_string(kFiles), [](const fs::path& disc) {
    for (int i = 0; i < kFiles / kFilesInEach; ++i) {
      const fs::path top = disc / ("Autore " + std::to_string(i / kFoldersInEach));
      WriteFiles(top / ("Disco " + std::to_string(i)), kFilesInEach);
    }
  });
}

void PlainWalk(benchmark::State& run) {
  const std::string disc = Disc();
  for (auto _ : run) {
    int files = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(disc)) {
      files += entry.is_regular_file() ? 1 : 0;
    }
    benchmark::DoNotOptimize(files);
  }
}
BENCHMARK(PlainWalk)->Unit(benchmark::kMillisecond);

void FolderScan(benchmark::State& run) {
  TestMachine machine;
  fs::create_directory_symlink(Disc(), machine.Root.Path("Disco"));
  AppState state;
  Listing list;
  for (auto _ : run) {
    state.ElencoRighe = 0;
    FindSubFolders("C:\\Disco", state, *machine.Files, {}, list);
  }
  run.counters["lines"] = static_cast<double>(list.ListCount());
}
BENCHMARK(FolderScan)->Unit(benchmark::kMillisecond);

// The contents window, opened.
struct OpenWindow {
  TestMachine machine;
  AppState state;
  FrmPreview window{state, machine.platform, {[] {}, [] { return std::string("ok"); }}};

  OpenWindow() { window.form.BeginShow(); }
  void Read(const std::string& folder) {
    machine.Windows.Folder = folder;
    window.Command2.Click();
  }
};

// Folders in each other, 3 files in each: more than 10^12 lines.
void ReadDeepDisc(benchmark::State& run) {
  OpenWindow open;
  fs::path folder = open.machine.Root.Path() + "/Fondo";
  for (int depth = 0; depth < kDepth; ++depth) WriteFiles(folder /= "dentro", 3);
  for (auto _ : run) open.Read("C:\\Fondo");
  run.counters["lines"] = static_cast<double>(open.window.List1.ListCount());
  const std::size_t before = mallinfo2().uordblks;
  open.window.List1.Clear();
  run.counters["list_bytes"] = static_cast<double>(before - mallinfo2().uordblks);
}
BENCHMARK(ReadDeepDisc)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace Morvane
