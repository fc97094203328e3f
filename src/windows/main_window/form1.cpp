#include "windows/main_window/form1.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/default_layout.h"
#include "core/settings_file.h"
#include "core/version_check.h"
#include "core/web_addresses.h"
#include "platform/resume_next.h"
#include "render/page_setup.h"
#include "render/print_job.h"

namespace Morvane {

namespace {

constexpr FormRow kForm = {.name = "Form1",
                           .caption = "Morvane",
                           .clientWidth = 10155,
                           .clientHeight = 7335,
                           .frameHeight = 810,
                           .resizable = true};

// clang-format off
constexpr std::array kControls = {
    ControlRow{"Toolbar1", "", "", 0, 0, 6900, 600, "Comandi"},
    ControlRow{"Picture1", "", "Clicca dentro il contorno per caricare un'immagine da stampare ...", 45, 620, 4395, 6195, "Pagina"},
    ControlRow{"Picture7", "", "Se questo programma è di tuo gradimento dona anche solo 2 Euro all'autore, puoi utilizzare Paypal oppure la tua carta di credito ...", 7260, 30, 891, 540},
    ControlRow{"Picture2", "", "Visita il sito dell'autore ...", 8265, 82, 1800, 435},
    ControlRow{"StatusBar1", "", "", 0, 6960, 10155, 375, "Barra di stato"},
    ControlRow{"Check1", "Stampa contorno", "", 0, 0, 0, 0},
    ControlRow{"Command1", "Scegli", "", 0, 0, 0, 0},
};
// clang-format on

constexpr double kWindowLeft = 300;  // twips, as are all here
constexpr double kLargestTop = 300;
constexpr double kAroundPage = 1950;  // what the window's height has beyond the page's

constexpr const char* kHelp =
    "Morvane\r\n\r\n"
    "Questo programma esegue la stampa delle copertine dei CD/DVD, VHS ecc. stampando fedelmente in scala "
    "l'area del fronte/retro della faccia del CD/DVD, della copertina grande del DVD, oppure anche delle "
    "copertine personalizzate che hai creato tu, caricare le immagini da stampare quindi cliccare sul "
    "bottone "
    "<Stampa>";

}  // namespace

Form1::Form1(AppState& state, Platform& platform, CoverSlots& slots, WindowOpeners openers)
    : form(kForm),
      Picture1(form, "Picture1", platform.text),
      state_(state),
      platform_(platform),
      slots_(slots),
      openers_(std::move(openers)) {
  form.LayOut(kControls);
  Picture1.PaperBackground = true;
  Picture2.SetImageKey("logo");
  Picture2.HandPointer = true;
  Picture7.SetImageKey("donazione");
  Picture7.HandPointer = true;
  Check1.SetVisible(false);
  Check1.SetValue(1);
  Command1.SetVisible(false);
  BuildMenuBar();
  BuildBars();

  form.Load = [this] { Form_Load(); };
  form.Activate = [this] { Form_Activate(); };
  form.Resize = [this] { Form_Resize(); };
  form.Unload = [this] { Form_Unload(); };
  Picture1.MouseDown = [this](MouseButton button, double x, double y) { Picture1_MouseDown(button, x, y); };
  Picture1.DragOver = [this](double x, double y) { return Picture1_DragOver(x, y); };
  Picture1.DragLeave = [this] { Picture1_DragLeave(); };
  Picture1.Drop = [this](const std::vector<DroppedPicture>& pictures, double x, double y) {
    Picture1_Drop(pictures, x, y);
  };
  Check1.Click = [this] { Check1_Click(); };
  Command1.Click = [this] { Command1_Click(); };
  Picture2.Click = [this] { Picture2_Click(); };
  Picture7.Click = [this] { Picture7_Click(); };
}

void Form1::Form_Load() {
  state_.AppPath = WithBackslash(platform_.app.path);
  ResumeNext([&] { ControllaVersione(); });
  const double centred = (platform_.screen.Measure().height - form.Height()) / 2;
  form.Move(kWindowLeft, std::clamp(centred, 0.0, kLargestTop));
  state_.PaginaLarg = 297;
  state_.PaginaAlte = 210;
  ReadSettings(state_, platform_.files);
  state_.MaxCopertine = kMaxCovers;
}

void Form1::ControllaVersione() {
  const std::string remota = VersioneRemota(platform_.http.OpenUrl(WebAddresses::kUpdateFile));
  if (!IsNewer(remota, VersioneLocale(platform_.app))) return;
  const std::string question = NewVersionMessage(platform_.app, remota);
  if (platform_.windows.MsgBox(question, MsgBoxButtons::YesNo) != MsgBoxAnswer::Yes) return;
  Apri(WebAddresses::kDownloadPage);
  platform_.windows.End();
}

// Each activation reads the layout file again, so that what the editor did not save is gone.
void Form1::Form_Activate() {
  state_.AppPath = WithBackslash(platform_.app.path);
  PrendiCOP();
  Ridisegna();
}

void Form1::PrendiCOP() {
  try {
    if (ReadCurrentLayout(state_, platform_.files, handles_)) unreadableLayout_.reset();
  } catch (const RuntimeError& error) {
    // Each activation reads the file again; the user is told once.
    if (std::exchange(unreadableLayout_, state_.NomeLayout) != state_.NomeLayout) {
      platform_.windows.MsgBox(error.what());
    }
  }
  Ridisegna();
  Form_Resize();
}

void Form1::Form_Resize() {
  SetWorkspacePage(state_);
  if (state_.NumCopertine == 0) InstallDefaultLayout(state_);
  const bool hasBack = state_.NumCopertine >= 2;
  Toolbar1.SetButtonEnabled("Back", hasBack);
  form.SetMenuEnabled("ManuCarF", hasBack);
  if (form.State() == WindowState::Minimized) return;
  PlaceBars();
  ResumeNext([&] { Picture1.SetHeight(form.Height() - kAroundPage); });
  ResumeNext([&] { Picture1.SetWidth(Picture1.Height() / state_.PaginaAlte * state_.PaginaLarg); });
  ResumeNext([&] { Ridisegna(); });
}

void Form1::PlaceBars() {
  ResumeNext([&] { StatusBar1.SetWidth(form.ClientWidth()); });
  ResumeNext([&] { StatusBar1.SetTop(form.ClientHeight() - StatusBar1.Height()); });
}

void Form1::Form_Unload() {
  Esci();
}

void Form1::Ridisegna() {
  state_.SuSchermo = 1;
  const double ratio = ImpostaPagina(Picture1.Surface, state_, platform_.printer);
  DisegnaCopertine(Picture1.Surface, ratio, state_, slots_);
  if (marked_ > 0) MarkCover(Picture1.Surface, state_, marked_);
}

void Form1::Imma(int indi) {
  openers_.frmAbout();
  if (!state_.ImmagineScelta.empty()) {
    slots_.Image1.at(static_cast<std::size_t>(indi)) = platform_.pictures.LoadPicture(state_.ImmagineScelta);
  }
  platform_.windows.DoEvents();
  Ridisegna();
}

void Form1::Picture1_MouseDown(MouseButton button, double x, double y) {
  // Where covers overlap, the picker opens once for each of them, in order, whatever the others' pictures
  // are.
  for (int n = 1; n <= state_.NumCopertine; ++n) {
    if (CoverHolds(state_, n, x, y) && button == MouseButton::Left)
      platform_.windows.Dispatch([&] { Imma(n - 1); });
  }
}

// Where covers overlap, the one that is drawn last lies on top.
int Form1::LastCoverAt(double x, double y) const {
  int n = state_.NumCopertine;
  while (n > 0 && !CoverHolds(state_, n, x, y)) --n;
  return std::max(n, 0);
}

void Form1::Mark(int cover) {
  if (std::exchange(marked_, cover) != cover) Ridisegna();
}

bool Form1::Picture1_DragOver(double x, double y) {
  Mark(LastCoverAt(x, y));
  return marked_ > 0;
}

void Form1::Picture1_DragLeave() {
  Mark(0);
}

// A picture that cannot be read costs its own cover alone; all of them are told together at the end.
void Form1::Picture1_Drop(const std::vector<DroppedPicture>& pictures, double x, double y) {
  const int first = LastCoverAt(x, y);
  if (first == 0) return;
  std::string unreadable;
  const std::size_t fit =
      std::min(pictures.size(), static_cast<std::size_t>(state_.NumCopertine - first + 1));
  for (std::size_t i = 0; i < fit; ++i) {
    try {
      slots_.Image1.at(static_cast<std::size_t>(first - 1) + i) = Load(pictures[i]);
    } catch (const RuntimeError& error) {
      unreadable += (unreadable.empty() ? "" : "\r\n") + std::string(error.what());
    }
  }
  Ridisegna();
  if (!unreadable.empty()) platform_.windows.MsgBox(unreadable);
}

PicturePtr Form1::Load(const DroppedPicture& dropped) const {
  if (dropped.picture) return dropped.picture;
  const std::string path = platform_.files.FromNative(dropped.nativePath);
  if (path.empty()) {
    throw RuntimeError(ErrorNumber::BadFileName,
                       "L'immagine '" + dropped.nativePath +
                           "' non si può usare: sta fuori dalle unità note o il suo "
                           "nome contiene una barra rovesciata.");
  }
  return platform_.pictures.LoadPicture(path);
}

void Form1::Check1_Click() {
  slots_.outlinesOn = Check1.Value() == 1;
  Ridisegna();
}

void Form1::CambiaContorno() {
  if (Check1.Value() == 0) {
    Check1.SetValue(1);
  } else {
    Check1.SetValue(0);
    Check1_Click();
  }
}

void Form1::Toolbar1_ButtonMenuClick(std::int16_t spessoreBordo) {
  state_.SpessoreBordo = spessoreBordo;
  Form_Resize();
}

void Form1::Command1_Click() {
  openers_.Dialog();
  state_.AppPath = WithBackslash(platform_.app.path);
  PrendiCOP();
}

void Form1::Picture2_Click() {
  Apri(WebAddresses::kMakerSite);
}

void Form1::Picture7_Click() {
  Apri(WebAddresses::kDonation);
}

void Form1::Stampa() {
  platform_.printer.JobTitle = state_.NomeLayout.empty() ? platform_.app.title : state_.NomeLayout;
  Morvane::Stampa(state_, slots_, platform_.printer);
}

void Form1::Esci() {
  platform_.windows.End();
}

void Form1::LanciaLindorel() {
  platform_.launcher.Shell(state_.AppPath + "lindorel.exe");
}

void Form1::Menuhelp_Click() {
  platform_.windows.MsgBox(kHelp);
}

void Form1::Apri(const std::string& target) {
  platform_.launcher.ShellExecute(target);
}

}  // namespace Morvane
