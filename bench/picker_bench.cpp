#include <benchmark/benchmark.h>

#include <QKeyEvent>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <thread>

#include "bench/files/kept_folder.h"
#include "bench/windows/window_machine.h"
#include "windows/image_picker/frm_about.h"

// The image picker, through the real windows without a screen.
namespace Morvane {
namespace {

namespace fs = std::filesystem;

constexpr int kPictures = 9999;
constexpr int kFolders = 5000;
constexpr int kShots = 100;

// 100 photos of 24 megapixels, of four kinds.
void WriteShots(const fs::path& folder) {
  for (int i = 1; i <= kShots; ++i) {
    fs::create_symlink(
        std::string(std::getenv("MORVANE_BENCH_PHOTOS")) + "/24-" + std::to_string(i % 4 + 1) + ".jpg",
        folder / ("Scatto " + std::to_string(i) + ".jpg"));
  }
}

// C:\Tante with 9,999 names of one photo, C:\Molte with 5,000 folders of one folder each.
struct FullMachine {
  WindowMachine desk{std::getenv("MORVANE_BENCH_PHOTOS")};
  AppState state;
  std::unique_ptr<frmAbout> picker;
  const std::string pictures = KeptFolder("tante", [](const fs::path& folder) {
    const fs::path first = folder / "Foto 1.jpg";
    fs::copy_file(fs::path(std::getenv("MORVANE_BENCH_PHOTOS")) / "12-1.jpg", first);
    for (int i = 2; i <= kPictures; ++i)
      fs::create_hard_link(first, folder / ("Foto " + std::to_string(i) + ".jpg"));
  });
  const std::string folders = KeptFolder("molte", [](const fs::path& folder) {
    for (int i = 1; i <= kFolders; ++i)
      fs::create_directories(folder / ("Cartella " + std::to_string(i)) / "Dentro");
  });

  FullMachine() {
    fs::create_directory_symlink(pictures, desk.machine.Root.Path("Tante"));
    fs::create_directory_symlink(folders, desk.machine.Root.Path("Molte"));
  }

  QWidget& Show() {
    picker = std::make_unique<frmAbout>(state, desk.platform, [] {});
    desk.windows.ShowMain(picker->form);
    QApplication::processEvents();
    return WindowMachine::Widget(picker->form.Name(), "");
  }
};

// The window made, a folder clicked, all painted.
void OpenPickerOnThem(benchmark::State& run) {
  std::optional<FullMachine> full;
  for (auto _ : run) {
    run.PauseTiming();
    full.emplace();
    run.ResumeTiming();
    QWidget& window = full->Show();
    full->picker->lblPath.SetCaption("C:\\Tante");
    full->picker->Command4.Click();
    WindowMachine::Settle(window);
  }
}
BENCHMARK(OpenPickerOnThem)->Unit(benchmark::kMillisecond)->Iterations(5);

// A folder of photos in the picker, its first one on show.
struct Shots {
  FullMachine full;
  QWidget& window = full.Show();
  QWidget* list = nullptr;

  Shots() {
    fs::create_directory_symlink(KeptFolder("scatti", WriteShots), full.desk.machine.Root.Path("Scatti"));
    full.picker->lblPath.SetCaption("C:\\Scatti");
    full.picker->Command4.Click();
    list = &WindowMachine::Widget(full.picker->form.Name(), "List1");
  }

  void PressNext() const {
    const bool last = full.picker->List1.ListIndex() + 1 >= kShots;
    QKeyEvent down(QEvent::KeyPress, last ? Qt::Key_Home : Qt::Key_Down, {});
    QApplication::sendEvent(list, &down);
  }

  void AwaitPreview() const {
    while (full.picker->TimerAnteprima.Running()) QApplication::processEvents();
    WindowMachine::Settle(window);
  }
};

// A key a photo, each painted before the next.
void NextPhoto(benchmark::State& run) {
  const Shots shots;
  for (auto _ : run) {
    shots.PressNext();
    shots.AwaitPreview();
  }
}
BENCHMARK(NextPhoto)->Unit(benchmark::kMillisecond);

// Until the first rows are painted; then the longest time without an answer to the user, in the next
// portions.
void ExpandOnSlowDisk(benchmark::State& run) {
  static constexpr std::chrono::milliseconds kCall(5);
  constexpr int kPortions = 10;
  std::optional<FullMachine> full;
  for (auto _ : run) {
    run.PauseTiming();
    full.emplace();
    full->desk.machine.Files->BeforeCall = [](auto...) { std::this_thread::sleep_for(kCall); };
    QWidget& window = full->Show();
    TreeView& tree = full->picker->tvwdirtree;
    if (!tree.Find("C:")->Expanded()) tree.UserExpands(*tree.Find("C:"));
    while (full->picker->TimerCartelle.Running()) QApplication::processEvents();
    run.ResumeTiming();
    tree.UserExpands(*tree.Find("C:\\Molte"));
    WindowMachine::Settle(window);
    run.PauseTiming();
    double worst = 0;
    for (int portion = 0; portion < kPortions; ++portion) {
      const auto start = std::chrono::steady_clock::now();
      WindowMachine::Settle(window);
      worst = std::max(
          worst, std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    run.counters["worst_ms"] = worst;
    run.ResumeTiming();
  }
}
BENCHMARK(ExpandOnSlowDisk)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace Morvane
