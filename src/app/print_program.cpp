#include "app/print_program.h"

#include <QtConcurrentMap>
#include <algorithm>
#include <exception>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "app/console.h"
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
  // After each page `undecodable` names the pictures that it is without.
  PdfFiles(std::string pdf, int copies, std::vector<PicturePtr>& undecodable)
      : pdf_(std::move(pdf)), copies_(copies), undecodable_(undecodable) {}

  SheetSize PortraitSheet() override { return kA4; }
  PrintDialogAnswer ShowDialog(const PrintDialogRequest&, PageOrientation&) override { return {}; }
  void SendPage(const DrawingList& page, PageOrientation orientation, const std::string& title) override {
    const PictureLibrariesSilenced silence;
    undecodable_ =
        WritePdf(PdfNameOfCopy(pdf_, ++written_, copies_), page, orientation, PortraitSheet(), title);
  }

 private:
  const std::string pdf_;
  const int copies_;
  std::vector<PicturePtr>& undecodable_;
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

struct PictureToLoad {
  int cover = 0;
  std::string file;  // as it was given
  std::string path;
  PicturePtr picture;
  std::exception_ptr failure;
};

void Load(const PictureLoader& pictures, PictureToLoad& one) {
  try {
    one.picture = NamedAsGiven(one.file, one.path, [&] { return pictures.LoadPicture(one.path); });
  } catch (...) {
    one.failure = std::current_exception();
  }
}

// Puts the picture into its slot, or tells that it is a bad one: false. RuntimeError when the file is not
// there.
bool TakeInto(CoverSlots& slots, const PictureToLoad& one) {
  try {
    if (one.failure) std::rethrow_exception(one.failure);
    slots.Image1.at(static_cast<std::size_t>(one.cover - 1)) = one.picture;
    return true;
  } catch (const RuntimeError& error) {
    if (error.Number() != ErrorNumber::InvalidPicture) throw;
    Complain("copertina " + std::to_string(one.cover) + ": " + error.what());
    return false;
  }
}

// Tells which pictures are damaged behind their heads. False when there is one.
bool AreAllPainted(const PrintArguments& arguments, const CoverSlots& slots,
                   const std::vector<PicturePtr>& undecodable) {
  bool areAllPainted = true;
  for (const auto& [cover, file] : arguments.pictures) {
    const PicturePtr& picture = slots.Image1.at(static_cast<std::size_t>(cover - 1));
    if (std::find(undecodable.begin(), undecodable.end(), picture) == undecodable.end()) continue;
    Complain("copertina " + std::to_string(cover) + ": " + DamagedPicture(file).what());
    areAllPainted = false;
  }
  return areAllPainted;
}

// On all processors at once: decoding takes most of the time. False when there was a bad picture.
bool LoadPictures(const PrintArguments& arguments, const FileSystem& files, const PictureLoader& pictures,
                  CoverSlots& slots) {
  std::vector<PictureToLoad> loading;
  for (const auto& [cover, file] : arguments.pictures) {
    loading.push_back({cover, file, WindowsPath(files, file), nullptr, nullptr});
  }
  {
    const PictureLibrariesSilenced silence;
    QtConcurrent::blockingMap(loading, [&](PictureToLoad& one) { Load(pictures, one); });
  }
  bool areAllGood = true;
  for (const PictureToLoad& one : loading) areAllGood = TakeInto(slots, one) && areAllGood;
  return areAllGood;
}

ExitCode PrintCovers(const PrintArguments& arguments, const FileSystem& files, const PictureLoader& pictures,
                     Printer& printer, const std::vector<PicturePtr>& undecodable) {
  AppState state;
  CoverSlots slots;
  state.MaxCopertine = kMaxCovers;
  state.SpessoreBordo = static_cast<std::int16_t>(arguments.outline);
  if (!arguments.layout.empty()) ReadLayoutFile(state, files, arguments.layout);
  if (state.NumCopertine == 0) InstallDefaultLayout(state);
  SetWorkspacePage(state);
  RequireCovers(arguments, state);
  const bool areAllGood = LoadPictures(arguments, files, pictures, slots);
  if (!state.NomeLayout.empty()) printer.JobTitle = state.NomeLayout;
  for (int copy = 1; copy <= arguments.copies; ++copy) {
    const PictureLibrariesSilenced silence;  // a queue's pictures are decoded once more
    DisegnaFoglio(state, slots, printer);
    printer.EndDoc();
  }
  return AreAllPainted(arguments, slots, undecodable) && areAllGood ? ExitCode::Done : ExitCode::NotPrinted;
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

// What the printers tell beside printing is put off: standard error is silent meanwhile. RuntimeError when
// there is no such printer.
std::unique_ptr<Printers> OpenDevice(const PrintArguments& arguments, std::vector<PicturePtr>& undecodable,
                                     std::vector<std::string>& complaints) {
  if (!arguments.pdf.empty()) return std::make_unique<PdfFiles>(arguments.pdf, arguments.copies, undecodable);
  auto queue = std::make_unique<QtPrinters>();
  queue->OnComplaint = [&](const std::string& text) { complaints.push_back(text); };
  if (!arguments.calibrated) queue->LeaveOutCalibration();
  queue->SelectPrinter(arguments.printer);
  return queue;
}

}  // namespace

ExitCode Print(const PrintArguments& arguments, const FileSystem& files) {
  // A queue does not tell which pictures it went without.
  const DamageShows damage = arguments.pdf.empty() ? DamageShows::AtLoading : DamageShows::WhenPainted;
  const QtPictureLoader pictures(files, OldFormatDecoderPath(), damage);
  const QtTextMetrics metrics;
  const QtFontCatalog fonts;
  std::vector<PicturePtr> undecodable;
  std::vector<std::string> complaints;
  const std::unique_ptr<Printers> device = OpenDevice(arguments, undecodable, complaints);
  Printer printer(*device, metrics, fonts);
  ExitCode code = ExitCode::Done;
  if (arguments.contents) {
    PrintContents(arguments, files, fonts, printer);
  } else {
    code = PrintCovers(arguments, files, pictures, printer, undecodable);
  }
  for (const std::string& complaint : complaints) Complain(complaint);
  return code;
}

}  // namespace Morvane
