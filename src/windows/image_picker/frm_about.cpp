#include "windows/image_picker/frm_about.h"

#include <array>
#include <chrono>
#include <string>
#include <utility>

#include "core/settings_file.h"
#include "platform/resume_next.h"
#include "windows/image_picker/image_list.h"

namespace Morvane {

namespace {

constexpr FormRow kWindow{
    .name = "frmAbout", .caption = "Morvane - Scelta immagine", .clientWidth = 8850, .clientHeight = 6435};

// name, caption, tool-tip, left, top, width, height, spoken name
constexpr std::array kControls = {
    ControlRow{"lblPath", "", "", 330, 30, 4185, 495, "Cartella scelta"},
    ControlRow{"tvwdirtree", "", "", 330, 570, 4185, 5565, "Cartelle"},
    ControlRow{"Command4", "Rivisualizza lista",
               "Files validi: .JPG.JPEG.IFF.BMP.CUR.ICO.DIB.GIF.EMF.WMF.RLE", 4560, 60, 1335, 495},
    ControlRow{"Label17", "", "", 6540, 60, 945, 435, "Numero di immagini"},
    ControlRow{"List1", "", "Lista files, pulsante destro del mouse per rinominare.", 4590, 600, 2925, 2400},
    ControlRow{"Command1", "&OK", "Scegli l'immagine e continua", 7590, 600, 915, 375},
    ControlRow{"Command2", "&Annulla", "Annulla la scelta e continua", 7590, 1020, 915, 375},
    ControlRow{"Frame1", "Anteprima immagine", "", 4590, 3060, 3915, 3075},
    ControlRow{"Image1", "", "Anteprima dell'immagine clic per selezione", 90, 270, 3435, 2655},
};

constexpr Color kPaleYellow{255, 255, 192};

// For so long the window may stand still while folders are looked into.
constexpr std::chrono::milliseconds kPortion(100);
constexpr int kAsSoonAsIdle = 1;  // milliseconds

}  // namespace

frmAbout::frmAbout(AppState& state, Platform& platform, std::function<void()> loadContentsWindow)
    : form(kWindow), state_(state), platform_(platform), loadContentsWindow_(std::move(loadContentsWindow)) {
  form.LayOut(kControls);
  form.Load = [this] { Form_Load(); };
  form.Activate = [this] { Form_Activate(); };
  form.MouseMove = [this](double, double) { ResetPointer(); };
  Frame1.MouseMove = [this](double, double) { ResetPointer(); };
  lblPath.BackColor = kPaleYellow;
  ConnectTree();
  ConnectList();
  ConnectButtons();
  BuildMenudestro();
}

void frmAbout::ConnectTree() {
  tvwdirtree.Expand = [this](TreeNode& node) { tvwdirtree_Expand(node); };
  tvwdirtree.Collapse = [this](TreeNode& node) { tvwdirtree_Collapse(node); };
  tvwdirtree.NodeClick = [this](TreeNode& node) { tvwdirtree_NodeClick(node); };
  tvwdirtree.Click = [this] { tvwdirtree_Click(); };
  TimerCartelle.SetInterval(kAsSoonAsIdle);
  TimerCartelle.Tick = [this] { TimerCartelle_Tick(); };
}

void frmAbout::ConnectList() {
  List1.Sorted = true;
  List1.Click = [this] { List1_Click(); };
  List1.DblClick = [this] { List1_DblClick(); };
  List1.KeyDown = [this](int keyCode) { List1_KeyDown(keyCode); };
  List1.MouseDown = [this](MouseButton button, double, double) { List1_MouseDown(button); };
  List1.MouseMove = [this](double, double) { ResetPointer(); };
  TimerAnteprima.SetInterval(kAsSoonAsIdle);
  TimerAnteprima.Tick = [this] { TimerAnteprima_Tick(); };
}

void frmAbout::ConnectButtons() {
  Command4.Click = [this] { Command4_Click(); };
  Image1.Click = [this] { Image1_Click(); };
  Command1.Click = [this] { Command1_Click(); };
  Command1.SetImageKey("ok");
  Command2.Click = [this] { Command2_Click(); };
  Command2.SetImageKey("annulla");
}

void frmAbout::Form_Load() {
  form.CentreOn(platform_.screen);
  BuildTree(tvwdirtree, state_, platform_.screen, platform_.files, loadContentsWindow_);
  // Opening the Desktop node named its folder; no folder is current before the first click.
  lblPath.SetCaption("");
}

void frmAbout::Form_Activate() {
  TimerCartelle.SetRunning(!unread_.empty());
}

// Every opening reads the folder again: closing and opening a node shows its new folders.
void frmAbout::tvwdirtree_Expand(TreeNode& node) {
  if (node.Key() == "root") return;
  if (node.Key() == "desk") return lblPath.SetCaption(state_.CartellaDesktop);
  if (node.Children().empty()) return;
  tvwdirtree.SetSorted(node, true);
  ReadFolders(node);
}

// On a slow disk the folders stand there before each was looked into; those get their buttons one by one.
void frmAbout::ReadFolders(const TreeNode& node) {
  const BusyPointer busy(platform_.screen, MousePointer::ArrowHourglass);
  tvwdirtree.SetRedraw(false);
  AddSubFolders(tvwdirtree, node.Key(), platform_.files, unread_);
  TimerCartelle_Tick();
}

void frmAbout::TimerCartelle_Tick() {
  tvwdirtree.SetRedraw(false);
  AddPlaceholders(tvwdirtree, platform_.files, unread_, std::chrono::steady_clock::now() + kPortion);
  tvwdirtree.SetRedraw(true);
  TimerCartelle.SetRunning(!unread_.empty());
}

void frmAbout::tvwdirtree_NodeClick(TreeNode& node) {
  std::string key = node.Key();
  if (key.ends_with('\\')) key.pop_back();  // the desktop folder's
  ReadOnePerClick(node);
  if (key == "root") return lblPath.SetCaption("");
  if (key == "desk") return lblPath.SetCaption(state_.CartellaDesktop);
  // The line break keeps a path of one line at the top of the label, which is two lines high.
  const bool fits = platform_.text.Width(form.GetFont(), key) <= lblPath.Width();
  lblPath.SetCaption(fits ? key + "\r\n" : key);
}

// The floppy drives have no button to open them before they were read; other removable drives never do.
void frmAbout::ReadOnePerClick(const TreeNode& node) {
  if (node.Key() == "A:" || node.Key() == "B:") ReadFolders(node);
}

void frmAbout::tvwdirtree_Click() {
  Command4_Click();
  state_.CartellaAlbero = FolderOfLabel();
}

void frmAbout::Command4_Click() {
  state_.CartellaImmagini = FolderOfLabel();
  if (!state_.CartellaImmagini.ends_with('\\')) state_.CartellaImmagini += '\\';
  const BusyPointer busy(platform_.screen);
  CaricaListaImmagini(state_, platform_.files, List1, Label17);
  if (TimerAnteprima.Running()) TimerAnteprima_Tick();
}

// Keys may come faster than pictures can be loaded: the row is chosen at once, its preview follows when no
// other key waits.
void frmAbout::List1_Click() {
  state_.ImmagineScelta = state_.CartellaImmagini + List1.Text();
  TimerAnteprima.SetRunning(true);
}

void frmAbout::TimerAnteprima_Tick() {
  TimerAnteprima.SetRunning(false);
  Image1.SetVisible(false);
  Image1.SetStretch(false);
  // A file that can't be decoded leaves the picture before it in view, and is chosen all the same.
  ResumeNext([&] { Image1.SetPicture(platform_.pictures.LoadPicture(state_.ImmagineScelta)); });
  const BusyPointer busy(platform_.screen);
  const PreviewSize size = ScaleToPreview(Image1.Width(), Image1.Height(), platform_.screen.TwipsPerPixelX,
                                          platform_.screen.TwipsPerPixelY);
  Image1.SetStretch(true);
  Image1.SetHeight(size.height);
  Image1.SetWidth(size.width);
  Image1.SetVisible(true);
}

void frmAbout::List1_KeyDown(int keyCode) {
  if (keyCode == kKeyEnter) Command1_Click();
  if (keyCode == kKeyEscape) Command2_Click();
}

void frmAbout::Command1_Click() {
  state_.FileFolder = FolderOfLabel();
  state_.ImmaginePrecedente = state_.ImmagineScelta;
  SalvaImpostazioni(state_, platform_.files);
  TimerCartelle.SetRunning(false);
  form.Hide();
}

void frmAbout::Command2_Click() {
  state_.ImmagineScelta.clear();
  form.UnloadForm();
}

std::string frmAbout::FolderOfLabel() const {
  std::string caption = lblPath.Caption();
  return toglivbcrlf(caption);
}

void frmAbout::ResetPointer() {
  platform_.screen.SetMousePointer(MousePointer::Default);
}

}  // namespace Morvane
