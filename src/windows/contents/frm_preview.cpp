#include "windows/contents/frm_preview.h"

#include <algorithm>
#include <utility>

#include "core/listing_font.h"
#include "core/web_addresses.h"
#include "platform/resume_next.h"
#include "render/page_setup.h"
#include "windows/contents/folder_scan.h"
#include "windows/contents/listing_composition.h"

namespace Morvane {

namespace {

constexpr FormRow kWindow = {.name = "FrmPreview",
                             .caption = "Morvane - Contenuto CD Dati Generico",
                             .clientWidth = 8400,
                             .clientHeight = 6765,
                             .frameHeight = 0,  // its measures are those of the inside
                             .resizable = true};

// clang-format off
// name, caption, tool-tip, left, top, width, height, spoken name
constexpr std::array kControls = {
    ControlRow{"Command2", "Leggi CD/DVD Cartella", "Legge il contenuto di un CD/DVD dati o cartella per stamparlo.", 90, 60, 855, 855},
    ControlRow{"Command1", "OK", "OK, fatto", 90, 922, 855, 945},
    ControlRow{"Command3", "Stampa", "Stampa", 90, 1874, 855, 885},
    ControlRow{"Command4", "Font", "Cambia il tipo di Font", 90, 2766, 855, 945},
    ControlRow{"Frame1", "Colonne", "N. di colonne in stampa", 90, 3720, 855, 1695},
    ControlRow{"Option1(0)", "&2", "", 120, 240, 495, 195},
    ControlRow{"Option1(1)", "&3", "", 120, 480, 495, 195},
    ControlRow{"Option1(2)", "&4", "", 120, 720, 495, 195},
    ControlRow{"Option1(3)", "&5", "", 120, 960, 495, 195},
    ControlRow{"Option1(4)", "&6", "", 120, 1200, 495, 195},
    ControlRow{"Option1(5)", "&7", "", 120, 1440, 495, 195},
    ControlRow{"Label1", "Titolo CD Cartella", "", -120, 5520, 1515, 195},
    ControlRow{"Text1", "", "Inserisci il titolo del CD/Cartella da stampare", 0, 5640, 1095, 315},
    ControlRow{"Check1", "Percorso files completo", "Stampa tutto il percorso dei files o meno", 0, 6030, 1455, 375},
    ControlRow{"Picture1", "", "", 1440, 60, 4275, 6135, "Anteprima"},
    ControlRow{"Picture2", "", "Clicca per visitare il sito dell'autore", 6600, 60, 1800, 435},
};
// clang-format on

constexpr std::int16_t kFewestColumns = 2;
constexpr double kSmallestWidth = 8250;  // twips, as are all here
constexpr double kSmallestHeight = 6750;
constexpr double kBelowPicture = 500;
constexpr double kRightOfLogo = 100;
constexpr double kSheetWidth = 210;  // millimetres
constexpr double kSheetHeight = 297;

}  // namespace

FrmPreview::FrmPreview(AppState& state, Platform& platform, FrmPreviewHooks hooks)
    : form(kWindow),
      Picture1(form, "Picture1", platform.text),
      state_(state),
      platform_(platform),
      hooks_(std::move(hooks)) {
  form.LayOut(kControls);
  form.CentreOn(platform.screen);  // Form_Load comes again
  Command1.Cancel = true;
  Command3.SetImageKey("stampa");
  Command4.SetImageKey("font");
  Option1.front().SetValue(true);
  Label1.TextAlignment = Alignment::Centre;
  Label1.SetFont({.name = "MS Sans Serif", .size = 7});  // it begins left of the window
  Text1.SetText("Titolo CD");
  Picture1.PaperBackground = true;
  Picture2.HandPointer = true;
  Connect();
}

void FrmPreview::Connect() {
  form.Load = [this] { Form_Load(); };
  form.Activate = [this] { Form_Activate(); };
  form.Resize = [this] { Form_Resize(); };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  for (int i = 0; i < static_cast<int>(Option1.size()); ++i) {
    Option1[static_cast<std::size_t>(i)].Click = [this, i] { Option1_Click(i); };
  }
  Label1.Click = [this] { Label1_Click(); };
  Text1.Change = [this] { Text1_Change(); };
  Text1.LostFocus = [this] { Text1_LostFocus(); };
  Check1.Click = [this] { Check1_Click(); };
  Picture2.Click = [this] { Picture2_Click(); };
}

void FrmPreview::Form_Load() {
  const int option = state_.ElencoColonne - kFewestColumns;
  if (option >= 0 && option < static_cast<int>(Option1.size())) {
    ResumeNext([&] { Option1[static_cast<std::size_t>(option)].SetValue(true); });
  }
  RepairListingFontSize(state_);
  ResumeNext([&] { Picture1.SetHeight(form.Height() - Picture1.Top() - kBelowPicture); });
  ResumeNext([&] { Picture1.SetWidth(Picture1.Height() / kSheetHeight * kSheetWidth); });
  Picture1.SetLeft((form.Width() - Picture1.Width()) / 2);
}

void FrmPreview::Form_Activate() {
  Picture2.SetImageKey("logo");
  Command1.SetImageKey(hooks_.pickerOkImage());
  Command2.SetImageKey("leggi");
  AggiornaAnteprima();
}

void FrmPreview::Form_Resize() {
  state_.ElencoColonne = kFewestColumns;
  Form_Load();
  form.SetSize(std::max(form.Width(), kSmallestWidth), std::max(form.Height(), kSmallestHeight));
  Picture2.SetLeft(form.Width() - Picture2.Width() - kRightOfLogo);
  AggiornaAnteprima();
}

void FrmPreview::AggiornaAnteprima() {
  try {
    DrawingSurface& sheet = Picture1.Surface;
    ImpostaPaginaMm(sheet, state_, platform_.printer);
    // The page set-up's ratio taken from the height alone: lines must be as high as on paper to the last
    // fraction, or a column here and there breaks elsewhere.
    const double ratio = sheet.Height() / kTwipsPerMillimetre / sheet.ScaleHeight();
    PrintRoutineAAAA(sheet, ratio, state_, {List1, Text1.Text(), Check1.Value() == 1});
    redrawFailure_.clear();
  } catch (const RuntimeError& error) {
    // Each keystroke in a title that is too long fails again; the user is told once and can shorten it.
    if (std::exchange(redrawFailure_, error.what()) != error.what()) throw;
  }
}

void FrmPreview::Restore() {
  Form_Load();
  AggiornaAnteprima();
}

void FrmPreview::Command2_Click() {
  state_.ElencoRighe = 0;
  try {
    Leggifile(state_, platform_, List1);
  } catch (const RuntimeError& error) {
    // What was read before the failure is shown.
    platform_.windows.MsgBox(error.what());
  }
  Restore();
}

void FrmPreview::Command3_Click() {
  Printer& printer = platform_.printer;
  try {
    // After a cancel the sheet goes to the current printer.
    const PrintDialogAnswer answer = printer.ShowDialog({.restricted = false});
    const BusyPointer busy(platform_.screen);
    printer.JobTitle = Text1.Text().empty() ? platform_.app.title : Text1.Text();
    const int copies = answer.accepted ? answer.copies : 1;
    for (int copy = 1; copy <= copies; ++copy) {
      printer.Surface().SetScaleMode(ScaleMode::Millimetres);
      PrintRoutineAAAA(printer.Surface(), 1.0, state_, {List1, Text1.Text(), Check1.Value() == 1});
      printer.EndDoc();
    }
  } catch (...) {
    printer.Surface().Cls();
    throw;
  }
}

void FrmPreview::Command4_Click() {
  hooks_.showFontChooser();
  Restore();
}

void FrmPreview::Option1_Click(int index) {
  state_.ElencoColonne = static_cast<std::int16_t>(index + kFewestColumns);
  Restore();
}

void FrmPreview::Picture2_Click() {
  platform_.launcher.ShellExecute(WebAddresses::kMakerSite);
}

}  // namespace Morvane
