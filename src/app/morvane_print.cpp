#include <QGuiApplication>
#include <QThreadPool>
#include <exception>
#include <filesystem>
#include <future>
#include <iostream>
#include <map>
#include <memory>
#include <system_error>
#include <vector>

#include "app/console_windows.h"
#include "app/print_arguments.h"
#include "core/default_layout.h"
#include "core/layout_reader.h"
#include "platform/files/local_file_system.h"
#include "platform/platform.h"
#include "platform/qt/desktop/qt_http_client.h"
#include "platform/qt/desktop/qt_launcher.h"
#include "platform/qt/painting/font_stand_ins.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "platform/qt/printing/qt_printer_device.h"
#include "platform/runtime_error.h"
#include "platform/units.h"
#include "render/print_job.h"
#include "windows/contents/folder_scan.h"
#include "windows/contents/listing_composition.h"

namespace {

using namespace Morvane;

enum ExitCode { kDone = 0, kNotPrinted = 1, kWrongUsage = 2 };

// A printer of PDF files of A4 without margins, a file a page.
class PdfFiles : public PrinterDevice {
 public:
  PdfFiles(std::string pdf, int copies) : pdf_(std::move(pdf)), copies_(copies) {}

  SheetSize PortraitSheet() override { return {210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre}; }
  PrintDialogAnswer ShowDialog(const PrintDialogRequest&, PageOrientation&) override { return {}; }
  void SendPage(const DrawingList& page, PageOrientation orientation, const std::string& title) override {
    WritePdf(PdfNameOfCopy(pdf_, ++written_, copies_), page, orientation, PortraitSheet(), title);
  }

 private:
  const std::string pdf_;
  const int copies_;
  int written_ = 0;
};

std::string WindowsPath(const FileSystem& files, const std::string& path) {
  std::error_code noFolder;
  const std::filesystem::path absolute = std::filesystem::absolute(path, noFolder);
  const std::string found = files.FromNative(absolute.lexically_normal().string());
  if (found.empty()) throw RuntimeError(ErrorNumber::BadFileName, "Nome di file non valido: " + path);
  return found;
}

void ReadLayoutFile(AppState& state, const FileSystem& files, const std::string& layout) {
  state.NomeLayout = std::filesystem::path(layout).stem().string();
  ReadLayout(*files.OpenForInput(WindowsPath(files, layout)), state);
}

void RequireCovers(const PrintArguments& arguments, const AppState& state) {
  const int last = arguments.pictures.empty() ? 0 : arguments.pictures.rbegin()->first;
  if (last <= state.NumCopertine) return;
  throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex, "Il layout non ha la copertina " +
                                                                 std::to_string(last) + ": l'ultima è la " +
                                                                 std::to_string(state.NumCopertine) + ".");
}

// All at once: decoding them takes most of the time.
void LoadPictures(const PrintArguments& arguments, Platform& platform, CoverSlots& slots) {
  std::map<int, std::future<PicturePtr>> loading;
  QThreadPool pool;
  for (const auto& [cover, file] : arguments.pictures) {
    const auto load = std::make_shared<std::packaged_task<PicturePtr()>>(
        [&platform, path = WindowsPath(platform.files, file)] {
          return platform.pictures.LoadPicture(path);
        });
    loading.emplace(cover, load->get_future());
    pool.start([load] { (*load)(); });
  }
  for (auto& [cover, picture] : loading) slots.Image1.at(static_cast<std::size_t>(cover - 1)) = picture.get();
}

void PrintCovers(const PrintArguments& arguments, Platform& platform) {
  AppState state;
  CoverSlots slots;
  state.MaxCopertine = kMaxCovers;
  state.SpessoreBordo = static_cast<std::int16_t>(arguments.outline);
  if (!arguments.layout.empty()) ReadLayoutFile(state, platform.files, arguments.layout);
  if (state.NumCopertine == 0) InstallDefaultLayout(state);
  SetWorkspacePage(state);
  RequireCovers(arguments, state);
  LoadPictures(arguments, platform, slots);
  if (!state.NomeLayout.empty()) platform.printer.JobTitle = state.NomeLayout;
  for (int copy = 1; copy <= arguments.copies; ++copy) {
    DisegnaFoglio(state, slots, platform.printer);
    platform.printer.EndDoc();
  }
}

void PrintContents(const PrintArguments& arguments, Platform& platform) {
  const PrintArguments::Contents& contents = *arguments.contents;
  AppState state;
  state.ElencoFontName = contents.font;
  state.ElencoFontSize = static_cast<float>(contents.size);
  state.ElencoFontItalic = contents.italic ? 1 : 0;
  if (!platform.fonts.CanPrint(contents.font)) {
    throw RuntimeError(ErrorNumber::InvalidPropertyValue, "Il carattere non è disponibile: " + contents.font);
  }
  Listing listing;
  FindSubFolders(WindowsPath(platform.files, contents.folder), state, platform, listing);
  state.ElencoColonne = static_cast<std::int16_t>(contents.columns);
  LineCount lost = 0;
  for (int copy = 1; copy <= arguments.copies; ++copy) {
    DrawingSurface& page = platform.printer.Surface();
    page.SetScaleMode(ScaleMode::Millimetres);
    lost = PrintRoutineAAAA(page, 1.0, state, {listing, contents.title, contents.fullPath});
    platform.printer.EndDoc();
  }
  if (lost > 0) std::cerr << "morvane-print: righe senza posto sul foglio: " << lost << '\n';
}

void Print(const PrintArguments& arguments) {
  LocalFileSystem files("/", MountTable(), {});
  ConsoleWindows windows;
  Screen screen;
  // Only a file that is not yet written can be given up when a picture turns out to be bad.
  const PictureCheck check = arguments.pdf.empty() ? PictureCheck::Whole : PictureCheck::Header;
  QtPictureLoader pictures(files, OldFormatDecoderPath(), check);
  const QtTextMetrics metrics;
  const QtFontCatalog fonts;
  PdfFiles pdf(arguments.pdf, arguments.copies);
  QtPrinterDevice queues;
  if (!arguments.printer.empty()) queues.SelectPrinter(arguments.printer);
  PrinterDevice& device = arguments.pdf.empty() ? static_cast<PrinterDevice&>(queues) : pdf;
  Printer printer(device, metrics, fonts);
  QtLauncher launcher(files, {});
  QtHttpClient http;
  Platform platform{windows, screen, files, pictures, metrics, fonts, printer, launcher, http, AppInfo{}};
  if (arguments.contents) {
    PrintContents(arguments, platform);
  } else {
    PrintCovers(arguments, platform);
  }
}

// Standard error is for the one line that says what went wrong.
void DropToolkitMessages(QtMsgType, const QMessageLogContext&, const QString&) {}

}  // namespace

int main(int argc, char** argv) {
  qInstallMessageHandler(DropToolkitMessages);
  try {
    const PrintArguments arguments = ParsePrintArguments(std::vector<std::string>(argv + 1, argv + argc));
    if (arguments.help) {
      std::cout << kPrintHelp;
      return kDone;
    }
    // No window is ever shown, so no display is needed.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    InstallFontStandIns();
    Print(arguments);
    return kDone;
  } catch (const UsageError& error) {
    std::cerr << "morvane-print: " << error.what() << " (--help spiega l'uso)\n";
    return kWrongUsage;
  } catch (const std::exception& error) {
    std::cerr << "morvane-print: " << error.what() << '\n';
    return kNotPrinted;
  }
}
