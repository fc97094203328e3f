#include "app/print_program.h"

#include <QThreadPool>
#include <algorithm>
#include <filesystem>
#include <future>
#include <map>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

#include "app/console.h"
#include "core/default_layout.h"
#include "core/layout_reader.h"
#include "platform/files/file_system.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "platform/qt/printing/qt_printer_device.h"
#include "platform/runtime_error.h"
#include "render/print_job.h"
#include "windows/contents/folder_scan.h"
#include "windows/contents/listing_composition.h"

namespace Morvane {
namespace {

// A printer of PDF files of A4 without margins, a file a page.
class PdfFiles : public PrinterDevice {
 public:
  PdfFiles(std::string pdf, int copies) : pdf_(std::move(pdf)), copies_(copies) {}

  SheetSize PortraitSheet() override { return kA4; }
  PrintDialogAnswer ShowDialog(const PrintDialogRequest&, PageOrientation&) override { return {}; }
  void SendPage(const DrawingList& page, PageOrientation orientation, const std::string& title) override {
    Undecodable =
        WritePdf(PdfNameOfCopy(pdf_, ++written_, copies_), page, orientation, PortraitSheet(), title);
  }

  std::vector<PicturePtr> Undecodable;  // of the last page

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

// Runs a step for a file or folder; what goes wrong is told with the name as it was given.
template <typename Step>
auto NamedAsGiven(const std::string& given, const std::string& path, Step step) {
  try {
    return step();
  } catch (const RuntimeError& error) {
    std::string text = error.what();
    const std::size_t at = text.find(path);
    if (at != std::string::npos) text.replace(at, path.size(), given);
    throw RuntimeError(error.Number(), text);
  }
}

void ReadLayoutFile(AppState& state, const FileSystem& files, const std::string& layout) {
  state.NomeLayout = std::filesystem::path(layout).stem().string();
  const std::string path = WindowsPath(files, layout);
  NamedAsGiven(layout, path, [&] { ReadLayout(*files.OpenForInput(path), state); });
}

void RequireCovers(const PrintArguments& arguments, const AppState& state) {
  const int last = arguments.pictures.empty() ? 0 : arguments.pictures.rbegin()->first;
  if (last <= state.NumCopertine) return;
  throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex, "Il layout non ha la copertina " +
                                                                 std::to_string(last) + ": l'ultima è la " +
                                                                 std::to_string(state.NumCopertine) + ".");
}

PicturePtr& SlotOf(CoverSlots& slots, int cover) {
  return slots.Image1.at(static_cast<std::size_t>(cover - 1));
}

using BadPictures = std::map<int, std::string>;  // what is wrong, by cover number

// All at once: decoding them takes most of the time. A bad picture leaves its slot empty. RuntimeError when a
// file is not there.
void LoadPictures(const PrintArguments& arguments, const FileSystem& files, const PictureLoader& pictures,
                  CoverSlots& slots, BadPictures& bad) {
  std::map<int, std::string> paths;
  for (const auto& [cover, file] : arguments.pictures) paths[cover] = WindowsPath(files, file);
  std::map<int, std::future<PicturePtr>> loading;
  QThreadPool pool;
  for (const auto& [cover, path] : paths) {
    const auto load = std::make_shared<std::packaged_task<PicturePtr()>>(
        [&pictures, file = arguments.pictures.at(cover), path = path] {
          return NamedAsGiven(file, path, [&] { return pictures.LoadPicture(path); });
        });
    loading.emplace(cover, load->get_future());
    pool.start([load] { (*load)(); });
  }
  for (auto& [cover, picture] : loading) {
    try {
      SlotOf(slots, cover) = picture.get();
    } catch (const RuntimeError& error) {
      if (error.Number() != ErrorNumber::InvalidPicture) throw;
      bad[cover] = error.what();
    }
  }
}

// A picture whose damage lies behind its header shows it when it is painted.
void FindUndecodable(const PrintArguments& arguments, CoverSlots& slots,
                     const std::vector<PicturePtr>& undecodable, BadPictures& bad) {
  for (const auto& [cover, file] : arguments.pictures) {
    const PicturePtr& picture = SlotOf(slots, cover);
    if (std::find(undecodable.begin(), undecodable.end(), picture) != undecodable.end()) {
      bad[cover] = DamagedPicture(file).what();
    }
  }
}

// All but these pictures is on the sheet.
ExitCode ComplainOf(const BadPictures& bad) {
  for (const auto& [cover, text] : bad) {
    Complain("copertina " + std::to_string(cover) + ": " + text);
  }
  return bad.empty() ? ExitCode::Done : ExitCode::NotPrinted;
}

ExitCode PrintCovers(const PrintArguments& arguments, const FileSystem& files, const PictureLoader& pictures,
                     Printer& printer, const PdfFiles& pdf) {
  AppState state;
  CoverSlots slots;
  state.MaxCopertine = kMaxCovers;
  state.SpessoreBordo = static_cast<std::int16_t>(arguments.outline);
  if (!arguments.layout.empty()) ReadLayoutFile(state, files, arguments.layout);
  if (state.NumCopertine == 0) InstallDefaultLayout(state);
  SetWorkspacePage(state);
  RequireCovers(arguments, state);
  BadPictures bad;
  LoadPictures(arguments, files, pictures, slots, bad);
  if (!state.NomeLayout.empty()) printer.JobTitle = state.NomeLayout;
  for (int copy = 1; copy <= arguments.copies; ++copy) {
    DisegnaFoglio(state, slots, printer);
    printer.EndDoc();
  }
  FindUndecodable(arguments, slots, pdf.Undecodable, bad);
  return ComplainOf(bad);
}

void PrintContents(const PrintArguments& arguments, const FileSystem& files, const FontCatalog& fonts,
                   Printer& printer) {
  const PrintArguments::Contents& contents = *arguments.contents;
  AppState state;
  state.ElencoFontName = contents.font;
  state.ElencoFontSize = static_cast<float>(contents.size);
  state.ElencoFontItalic = contents.italic ? 1 : 0;
  if (!fonts.CanPrint(contents.font)) {
    throw RuntimeError(ErrorNumber::InvalidPropertyValue, "Il carattere non è disponibile: " + contents.font);
  }
  Listing listing;
  const std::string folder = WindowsPath(files, contents.folder);
  NamedAsGiven(contents.folder, folder,
               [&] { FindSubFolders(folder, state, files, {.message = Complain}, listing); });
  state.ElencoColonne = static_cast<std::int16_t>(contents.columns);
  LineCount lost{};
  for (int copy = 1; copy <= arguments.copies; ++copy) {
    DrawingSurface& page = printer.Surface();
    page.SetScaleMode(ScaleMode::Millimetres);
    lost = PrintRoutineAAAA(page, 1.0, state, {listing, contents.title, contents.fullPath});
    printer.EndDoc();
  }
  if (lost > 0) Complain("righe senza posto sul foglio: " + std::to_string(lost));
}

// RuntimeError when there is no such printer.
std::unique_ptr<PrinterDevice> OpenQueue(const PrintArguments& arguments) {
  auto queue = std::make_unique<QtPrinterDevice>();
  queue->OnComplaint = Complain;
  if (!arguments.calibrated) queue->LeaveOutCalibration();
  queue->SelectPrinter(arguments.printer);
  return queue;
}

}  // namespace

ExitCode Print(const PrintArguments& arguments, const FileSystem& files) {
  // A queue does not tell which pictures it went without.
  const PictureCheck check = arguments.pdf.empty() ? PictureCheck::Whole : PictureCheck::Header;
  QtPictureLoader pictures(files, OldFormatDecoderPath(), check);
  const QtTextMetrics metrics;
  const QtFontCatalog fonts;
  PdfFiles pdf(arguments.pdf, arguments.copies);
  const std::unique_ptr<PrinterDevice> queue = arguments.pdf.empty() ? OpenQueue(arguments) : nullptr;
  PrinterDevice& device = queue ? *queue : pdf;
  Printer printer(device, metrics, fonts);
  if (!arguments.contents) return PrintCovers(arguments, files, pictures, printer, pdf);
  PrintContents(arguments, files, fonts, printer);
  return ExitCode::Done;
}

}  // namespace Morvane
