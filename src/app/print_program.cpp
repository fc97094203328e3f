#include "app/print_program.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "core/default_layout.h"
#include "core/layout_reader.h"
#include "platform/files/file_system.h"
#include "platform/qt/painting/qt_font_catalog.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "platform/qt/printing/qt_printers.h"
#include "platform/runtime_error.h"
#include "render/print_job.h"
#include "windows/contents/folder_scan.h"
#include "windows/contents/listing_composition.h"

namespace Morvane {
namespace {

// A printer of PDF files of A4 without margins, a file a page.
class PdfFiles : public Printers {
 public:
  PdfFiles(std::string pdf, int copies) : pdf_(std::move(pdf)), copies_(copies) {}

  SheetSize PortraitSheet() override { return kA4; }
  PrintDialogAnswer ShowDialog(const PrintDialogRequest&, PageOrientation&) override { return {}; }
  std::vector<PicturePtr> SendPage(const DrawingList& page, PageOrientation orientation,
                                   const std::string& title) override {
    return WritePdf(PdfNameOfCopy(pdf_, ++written_, copies_), page, orientation, PortraitSheet(), title);
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
  if (state.NumCopertine == 0) {
    throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                       "Il file di layout '" + layout +
                           "' non contiene copertine. Le righe di un layout finiscono con CR LF.");
  }
}

void RequireCovers(const PrintArguments& arguments, const AppState& state) {
  const int last = arguments.pictures.empty() ? 0 : arguments.pictures.rbegin()->first;
  if (last <= state.NumCopertine) return;
  throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex, "Il layout non ha la copertina " +
                                                                 std::to_string(last) + ": l'ultima è la " +
                                                                 std::to_string(state.NumCopertine) + ".");
}

// Puts each picture into its slot, but those whose files are none: then false.
bool LoadPictures(const PrintArguments& arguments, const FileSystem& files, CoverSlots& slots,
                  const Complain& complain) {
  const QtPictureLoader pictures(files, OldFormatDecoderPath(), DamageShows::WhenPainted);
  bool areAllGood = true;
  for (const auto& [cover, file] : arguments.pictures) {
    const std::string path = WindowsPath(files, file);
    try {
      slots.Image1.at(static_cast<std::size_t>(cover - 1)) =
          NamedAsGiven(file, path, [&] { return pictures.LoadPicture(path); });
    } catch (const RuntimeError& error) {
      if (error.Number() != ErrorNumber::InvalidPicture) throw;
      complain("copertina " + std::to_string(cover) + ": " + error.what());
      areAllGood = false;
    }
  }
  return areAllGood;
}

// Tells which pictures are damaged behind their heads. False when there is one.
bool AreAllPainted(const PrintArguments& arguments, const CoverSlots& slots,
                   const std::vector<PicturePtr>& undecodable, const Complain& complain) {
  bool areAllPainted = true;
  for (const auto& [cover, file] : arguments.pictures) {
    const PicturePtr& picture = slots.Image1.at(static_cast<std::size_t>(cover - 1));
    if (std::find(undecodable.begin(), undecodable.end(), picture) == undecodable.end()) continue;
    complain("copertina " + std::to_string(cover) + ": " + DamagedPicture(file).what());
    areAllPainted = false;
  }
  return areAllPainted;
}

ExitCode PrintCovers(const PrintArguments& arguments, const FileSystem& files, Printer& printer,
                     const Complain& complain) {
  AppState state;
  CoverSlots slots;
  state.MaxCopertine = kMaxCovers;
  state.SpessoreBordo = static_cast<std::int16_t>(arguments.outline);
  if (!arguments.layout.empty()) ReadLayoutFile(state, files, arguments.layout);
  if (state.NumCopertine == 0) InstallDefaultLayout(state);
  SetWorkspacePage(state);
  RequireCovers(arguments, state);
  const bool areAllGood = LoadPictures(arguments, files, slots, complain);
  if (!state.NomeLayout.empty()) printer.JobTitle = state.NomeLayout;
  std::vector<PicturePtr> undecodable;
  for (int copy = 1; copy <= arguments.copies; ++copy) {
    DisegnaFoglio(state, slots, printer);
    undecodable = printer.EndDoc();
  }
  const bool areAllPainted = AreAllPainted(arguments, slots, undecodable, complain);
  return areAllPainted && areAllGood ? ExitCode::Done : ExitCode::NotPrinted;
}

void PrintContents(const PrintArguments& arguments, const FileSystem& files, const FontCatalog& fonts,
                   Printer& printer, const Complain& complain) {
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
               [&] { FindSubFolders(folder, state, files, {.message = complain}, listing); });
  state.ElencoColonne = static_cast<std::int16_t>(contents.columns);
  LineCount lost{};
  for (int copy = 1; copy <= arguments.copies; ++copy) {
    DrawingSurface& page = printer.Surface();
    page.SetScaleMode(ScaleMode::Millimetres);
    lost = PrintRoutineAAAA(page, 1.0, state, {listing, contents.title, contents.fullPath});
    printer.EndDoc();
  }
  if (lost > 0) complain("righe senza posto sul foglio: " + std::to_string(lost));
}

// RuntimeError when there is no such printer.
std::unique_ptr<Printers> OpenDevice(const PrintArguments& arguments, const Complain& complain) {
  if (!arguments.pdf.empty()) return std::make_unique<PdfFiles>(arguments.pdf, arguments.copies);
  auto queue = std::make_unique<QtPrinters>();
  queue->OnComplaint = complain;
  if (!arguments.calibrated) queue->LeaveOutCalibration();
  queue->SelectPrinter(arguments.printer);
  return queue;
}

}  // namespace

ExitCode Print(const PrintArguments& arguments, const FileSystem& files, const Complain& complain) {
  const QtTextMetrics metrics;
  const QtFontCatalog fonts;
  const std::unique_ptr<Printers> device = OpenDevice(arguments, complain);
  Printer printer(*device, metrics, fonts);
  if (!arguments.contents) return PrintCovers(arguments, files, printer, complain);
  PrintContents(arguments, files, fonts, printer, complain);
  return ExitCode::Done;
}

}  // namespace Morvane
