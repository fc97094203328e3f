#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QThread>
#include <algorithm>
#include <cstdlib>
#include <memory>

#include "bench/photos/photo.h"
#include "bench/windows/window_machine.h"
#include "windows/contents/folder_scan.h"
#include "windows/main_window/program.h"

// The page with photos in its covers, through the real windows without a screen. The photos of
// MORVANE_BENCH_PHOTOS are named after their megapixels: 12-1.jpg to 12-4.jpg and 24.jpg.
namespace Morvane {
namespace {

constexpr int kPageHeight = 1414;
constexpr int kPhotos = 4;

std::string PhotoFolder() {
  return std::getenv("MORVANE_BENCH_PHOTOS");
}

std::string PhotoFor(int cover) {
  return "C:\\Foto\\12-" + std::to_string(cover % kPhotos + 1) + ".jpg";
}

// 100 pictures of 12 megapixels, each with its own bytes; loaded once for all benchmarks.
const std::vector<PicturePtr>& Photos() {
  static const std::vector<PicturePtr> photos = [] {
    WindowMachine desk(PhotoFolder());
    std::vector<PicturePtr> loaded;
    for (int i = 0; i < kMaxCovers; ++i) loaded.push_back(desk.pictures.LoadPicture(PhotoFor(i)));
    return loaded;
  }();
  return photos;
}

double MillisecondsOf(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// The main window with a page of 1000 x 1414 pixels, a photo in each of the covers.
struct ShownPage {
  WindowMachine desk{PhotoFolder()};
  Program program{desk.platform, ','};
  QWidget* window = nullptr;
  QWidget* page = nullptr;

  explicit ShownPage(int covers) {
    FillSheet(program.state, covers);
    std::copy_n(Photos().begin(), covers, program.slots.Image1.begin());
    program.Start();
    QApplication::processEvents();
    window = &WindowMachine::Widget("Form1", "");
    page = &WindowMachine::Widget("Form1", "Picture1");
    ResizePage(kPageHeight);
    Sharpen();
  }

  // Waits until the size counts as one that stays.
  void Sharpen() {
    QApplication::processEvents();
    QThread::msleep(300);
    WindowMachine::Settle(*page);
    Redraw();
  }

  void ResizePage(int height) { window->resize(1200, window->height() + height - page->height()); }
  void Redraw() {
    program.form1.Ridisegna();
    page->repaint();
  }
};

void RedrawPage(benchmark::State& run) {
  ShownPage shown(kMaxCovers);
  for (auto _ : run) shown.Redraw();
  run.counters["page_width"] = shown.page->width();
  run.counters["page_height"] = shown.page->height();
}
BENCHMARK(RedrawPage)->Unit(benchmark::kMillisecond);

// Smaller and larger again, no two sizes in a row the same.
int HeightAtStep(int step) {
  constexpr int kSteps = 100;
  const int way = std::abs(step % (2 * kSteps) - kSteps);
  return kPageHeight - (kSteps - way) * 3;
}

// At the end the frame that makes it sharp.
void ResizePage(benchmark::State& run) {
  ShownPage shown(kMaxCovers);
  double worst = 0;
  int step = 0;
  for (auto _ : run) {
    QElapsedTimer timer;
    timer.start();
    shown.ResizePage(HeightAtStep(step++));
    QApplication::processEvents();
    worst = std::max(worst, MillisecondsOf(timer));
  }
  QElapsedTimer timer;
  QThread::msleep(300);
  timer.start();
  WindowMachine::Settle(*shown.page);
  run.counters["sharp_ms"] = MillisecondsOf(timer);
  run.counters["worst_ms"] = worst;
}
BENCHMARK(ResizePage)->Unit(benchmark::kMillisecond);

// At the size in which a picture is kept for the screen, or the next larger one that a JPEG decodes to.
void DecodePhoto(benchmark::State& run) {
  for (auto _ : run) benchmark::DoNotOptimize(DecodeToNowhere(PhotoFolder() + "/24.jpg", 2));
}
BENCHMARK(DecodePhoto)->Unit(benchmark::kMillisecond);

void LoadPhotoIntoSlot(benchmark::State& run) {
  ShownPage shown(0);
  for (auto _ : run) {
    // A picture in use, be it in what the page shows, is not read again.
    run.PauseTiming();
    shown.program.slots.Image1[0] = nullptr;
    shown.Redraw();
    run.ResumeTiming();
    shown.program.slots.Image1[0] = shown.desk.pictures.LoadPicture("C:\\Foto\\24.jpg");
    shown.Redraw();
  }
}
BENCHMARK(LoadPhotoIntoSlot)->Unit(benchmark::kMillisecond);

// The cover on show goes right and left, and grows and shrinks; its photo with it.
void EditorStep(benchmark::State& run) {
  WindowMachine desk(PhotoFolder());
  AppState state;
  state.MaxCopertine = kMaxCovers;
  state.AppPath = "C:\\Morvane\\";
  CoverSlots slots;
  std::minstd_rand rnd;
  FillSheet(state, kMaxCovers);
  std::copy(Photos().begin(), Photos().end(), slots.Image1.begin());
  Dialog editor(state, desk.platform, slots, rnd);
  desk.windows.ShowMain(editor.form);
  // No layout file is there to bring a cover on show: a first step draws the page.
  state.CopCorrente = 1;
  for (TextBox* measure : {&editor.Text1, &editor.Text2, &editor.Text4, &editor.Text5})
    measure->SetText("18");
  QWidget& preview = WindowMachine::Widget(editor.form.Name(), "Picture1");
  CommandButton* const steps[] = {&editor.Command11, &editor.Command7, &editor.Command10, &editor.Command6};
  editor.Command13.Click();
  WindowMachine::Settle(preview);
  double worst = 0;
  int step = 0;
  for (auto _ : run) {
    QElapsedTimer timer;
    timer.start();
    steps[step++ % 4]->Click();
    preview.repaint();
    worst = std::max(worst, MillisecondsOf(timer));
  }
  run.counters["covers"] = state.NumCopertine;
  run.counters["worst_ms"] = worst;
}
BENCHMARK(EditorStep)->Unit(benchmark::kMillisecond);

// A window made, shown and painted; its views go before it does.
template <typename Window, typename... Extra>
void OpenWindow(benchmark::State& run, Extra&&... extra) {
  AppState state;
  state.MaxCopertine = kMaxCovers;
  state.AppPath = "C:\\Morvane\\";
  for (auto _ : run) {
    run.PauseTiming();
    auto desk = std::make_unique<WindowMachine>(PhotoFolder());
    for (const auto& layout : std::filesystem::directory_iterator(MORVANE_SOURCE_DIR "/data/layouts"))
      std::filesystem::copy(layout, desk->machine.Root.Path("Morvane"));
    run.ResumeTiming();
    Window window(state, desk->platform, extra...);
    desk->windows.ShowMain(window.form);
    WindowMachine::Settle(WindowMachine::Widget(window.form.Name(), ""));
    run.PauseTiming();
    desk.reset();
    run.ResumeTiming();
  }
}
void OpenEditor(benchmark::State& run) {
  CoverSlots slots;
  std::minstd_rand rnd;
  OpenWindow<Dialog>(run, slots, rnd);
}
BENCHMARK(OpenEditor)->Unit(benchmark::kMillisecond)->Iterations(5);
void OpenContents(benchmark::State& run) {
  OpenWindow<FrmPreview>(run, FrmPreviewHooks{[] {}, [] { return std::string("ok"); }});
}
BENCHMARK(OpenContents)->Unit(benchmark::kMillisecond)->Iterations(5);

// A letter more or less in the title of a full sheet: seven columns of small print.
void TitleKeystroke(benchmark::State& run) {
  WindowMachine desk(PhotoFolder());
  for (int file = 0; file < 900; ++file) {
    desk.machine.WriteFile("C:\\Disco\\Brano " + std::to_string(file) + ".mp3", "");
  }
  AppState state;
  state.ElencoFontSize = 4;
  FrmPreview contents(state, desk.platform, {[] {}, [] { return std::string("ok"); }});
  desk.windows.ShowMain(contents.form);
  FindSubFolders("C:\\Disco", state, desk.platform.files, {}, contents.List1);
  contents.Option1[5].UserClicks();
  QWidget& sheet = WindowMachine::Widget(contents.form.Name(), "Picture1");
  WindowMachine::Settle(sheet);
  double worst = 0;
  bool longer = false;
  for (auto _ : run) {
    QElapsedTimer timer;
    timer.start();
    contents.Text1.SetText((longer = !longer) ? "Titolo CD 1" : "Titolo CD");
    sheet.repaint();
    worst = std::max(worst, MillisecondsOf(timer));
  }
  run.counters["shapes"] = static_cast<double>(contents.Picture1.Surface.Drawing().size());
  run.counters["worst_ms"] = worst;
}
BENCHMARK(TitleKeystroke)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace Morvane
