#include "windows/layout_editor/dialog.h"

#include <array>

#include "core/layout_files.h"
#include "platform/resume_next.h"
#include "platform/text.h"
#include "windows/layout_editor/measure_rows.h"

namespace Morvane {

namespace {

constexpr FormRow kWindow{.name = "Dialog",
                          .caption = "Apertura file copertine",
                          .clientWidth = 8280,
                          .clientHeight = 6420,
                          .iconKey = "dialog_icona"};

// clang-format off
// name, caption, tool-tip, left, top, width, height, spoken name. The height of List1 is also the long side
// of the sheet in the preview.
constexpr std::array kControls = {
    ControlRow{"Shape1", "", "", 75, 5040, 8130, 1305},
    ControlRow{"Shape2", "", "", 105, 5070, 1500, 1245},
    ControlRow{"Shape3", "", "", 1635, 5070, 2295, 1245},
    ControlRow{"Shape4", "", "", 3960, 5070, 4215, 1245},
    ControlRow{"Line1", "", "", 2505, 5070, 0, 1245},
    ControlRow{"Line2", "", "", 5010, 5070, 0, 1245},
    ControlRow{"Line3", "", "", 6060, 5070, 0, 1245},
    ControlRow{"Line4", "", "", 7110, 5070, 0, 1245},
    ControlRow{"Line5", "", "", 105, 5385, 1500, 0},
    ControlRow{"Line6", "", "", 1635, 5385, 870, 0},
    ControlRow{"Line7", "", "", 3960, 5385, 1050, 0},
    ControlRow{"Line8", "", "", 5010, 5385, 1050, 0},
    ControlRow{"Line9", "", "", 6060, 5385, 1050, 0},
    ControlRow{"Line10", "", "", 7110, 5385, 1065, 0},
    ControlRow{"Line11", "", "", 3960, 5880, 1050, 0},
    ControlRow{"Line12", "", "", 5010, 5880, 1050, 0},
    ControlRow{"Line13", "", "", 6060, 5880, 1050, 0},
    ControlRow{"Line14", "", "", 7110, 5880, 1065, 0},
    ControlRow{"Picture2", "", "", 7410, 30, 390, 390},

    ControlRow{"Label7", "Files di layout copertine", "", 120, 180, 2625, 240},
    ControlRow{"List1", "", "Elenco layout copertine disponibili.", 120, 450, 2625, 4155},
    ControlRow{"Label8", "Anteprima layout copertine", "", 2790, 180, 4155, 240},
    ControlRow{"Picture1", "", "", 2790, 450, 4155, 4155, "Anteprima layout copertine"},

    ControlRow{"OKButton", "&Apri", "Utilizza il layout di stampa selezionato.", 6975, 450, 1275, 420},
    ControlRow{"CancelButton", "Annulla", "Esce e utilizza il precedente layout di copertine.", 6975, 915, 1275, 420},
    ControlRow{"Command15", "Help", "Esce e utilizza il precedente layout di copertine.", 6975, 1380, 1275, 420},
    ControlRow{"Command1", "Elimina", "Elimina il file con layout di Morvane selezionato", 6975, 2325, 1275, 420},
    ControlRow{"Command14", "Rinomina", "Rinomina il file di layout di copertine selezionato", 6975, 2790, 1275, 420},
    ControlRow{"Command2", "Nuovo File", "Aggiunge un nuovo file di layout di copertine.", 6975, 3255, 1275, 420},
    ControlRow{"Command5", "&Salva", "Salva il layout corrente", 6975, 3720, 1275, 420},
    ControlRow{"Command16", "Sal. con &Nome", "Salva il layout di copertine corrente su un altro file.", 6975, 4185, 1275, 420},

    ControlRow{"Label9", "La tabella sottostante serve per modificare i valori della pagina e le dimensioni delle immagini", "", 120, 4635, 8040, 390},
    ControlRow{"Label1", "Orientam. Pagina", "", 120, 5130, 1470, 225},
    ControlRow{"Option1", "Vert.", "Orientamento della pagina Verticale", 285, 5475, 1200, 300},
    ControlRow{"Option2", "Orizz.", "Orientamento della pagina Orizzontale", 285, 5865, 1200, 300},
    ControlRow{"Label4", "Ogg.01", "", 1665, 5130, 810, 225},
    ControlRow{"Command3", "<", "Edita misure copertina precedente", 1680, 5445, 375, 375},
    ControlRow{"Command4", ">", "Edita misure copertina successiva", 2085, 5445, 375, 375},
    ControlRow{"Command17", "+", "Aggiunge una copertina al layout corrente", 1680, 5880, 375, 375},
    ControlRow{"Command18", "-", "Toglie una delle copertine al layout corrente", 2085, 5880, 375, 375},
    ControlRow{"Frame1", "", "", 2550, 5130, 1335, 1140},
    ControlRow{"Option3", "Rettangolo", "L'oggetto è rettangolare / quadrato", 60, 240, 1245, 300},
    ControlRow{"Option4", "Tondo", "L'oggetto è ellitico / circolare", 60, 675, 1245, 300},

    ControlRow{"Label2", "Larg.(mm)", "", 3990, 5130, 990, 225},
    ControlRow{"Text1", "", "", 4020, 5445, 930, 390, "Larghezza in millimetri"},
    ControlRow{"Command6", "-", "Diminuisce la larghezza della copertina corrente", 4020, 5925, 450, 330},
    ControlRow{"Command7", "+", "Aumenta la larghezza della copertina corrente", 4500, 5925, 450, 330},
    ControlRow{"Label3", "Alt.(mm)", "", 5040, 5130, 990, 225},
    ControlRow{"Text2", "", "", 5070, 5445, 930, 390, "Altezza in millimetri"},
    ControlRow{"Command8", "-", "Diminuisce l'altezza della copertina corrente", 5070, 5925, 450, 330},
    ControlRow{"Command9", "+", "Aumenta l'altezza della copertina corrente", 5550, 5925, 450, 330},
    ControlRow{"Label5", "Delta X", "", 6090, 5130, 990, 225},
    ControlRow{"Text4", "", "", 6120, 5445, 930, 390, "Distanza dalla sinistra del foglio in millimetri"},
    ControlRow{"Command10", "-", "Diminuisce la distanza dalla sinistra del foglio", 6120, 5925, 450, 330},
    ControlRow{"Command11", "+", "Aumenta la distanza dalla sinistra del foglio", 6600, 5925, 450, 330},
    ControlRow{"Label6", "Delta Y", "", 7140, 5130, 1005, 225},
    ControlRow{"Text5", "", "", 7170, 5445, 930, 390, "Distanza dalla sommità del foglio in millimetri"},
    ControlRow{"Command12", "-", "Diminuisce la distanza verticale dalla sommità del foglio", 7170, 5925, 450, 330},
    ControlRow{"Command13", "+", "Aumenta la distanza verticale dalla sommità del foglio", 7650, 5925, 450, 330},
};
// clang-format on

constexpr int kShapes = 4;
constexpr int kLines = 14;

}  // namespace

Dialog::Dialog(AppState& state, Platform& platform, const CoverSlots& slots, std::minstd_rand& rnd)
    : form(kWindow),
      Picture1(form, "Picture1", platform.text),
      state_(state),
      platform_(platform),
      slots_(slots),
      rnd_(rnd) {
  for (int n = 1; n <= kShapes; ++n) Rulings.emplace_back(form, "Shape" + std::to_string(n));
  for (int n = 1; n <= kLines; ++n) Rulings.emplace_back(form, "Line" + std::to_string(n));
  form.LayOut(kControls);
  Picture2.SetImageKey("dialog_icona");
  Picture1.PaperBackground = true;
  form.Load = [this] { Form_Load(); };
  form.Unload = [this] { Form_Unload(); };
  ConnectList();
  ConnectFiles();
  ConnectEditing();
  DressEditTable();
}

void Dialog::ConnectList() {
  List1.Sorted = true;
  List1.Click = [this] { List1_Click(); };
  List1.DblClick = [this] { List1_DblClick(); };
  List1.KeyDown = [this](int keyCode) { List1_KeyDown(keyCode); };
  OKButton.Click = [this] { OKButton_Click(); };
  CancelButton.Click = [this] { CancelButton_Click(); };
  CancelButton.Cancel = true;
  Picture1.MouseDown = [this](MouseButton button, double x, double y) { Picture1_MouseDown(button, x, y); };
  Picture1.MouseMove = [this](double x, double y) { Picture1_MouseMove(x, y); };
}

void Dialog::ConnectFiles() {
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  Command5.Click = [this] { Command5_Click(); };
  Command14.Click = [this] { Command14_Click(); };
  Command16.Click = [this] { Command16_Click(); };
}

void Dialog::ConnectEditing() {
  Option1.Click = [this] { Option1_Click(); };
  Option2.Click = [this] { Option2_Click(); };
  Option3.Click = [this] { Option3_Click(); };
  Option4.Click = [this] { Option4_Click(); };
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  Command15.Click = [this] { Command15_Click(); };
  Command17.Click = [this] { Command17_Click(); };
  Command18.Click = [this] { Command18_Click(); };
  for (const MeasureRow& row : kMeasureRows) {
    (this->*row.down).Click = [this, &row] { StepDown(row); };
    (this->*row.up).Click = [this, &row] { StepUp(row); };
    (this->*row.box).LostFocus = [this, &row] { Text_LostFocus(row); };
    (this->*row.box).KeyDown = [this, &row](int keyCode) { Text_KeyDown(row, keyCode); };
  }
}

void Dialog::DressEditTable() {
  for (Label* heading : {&Label1, &Label2, &Label3, &Label4, &Label5, &Label6}) {
    heading->TextAlignment = Alignment::Centre;
  }
  for (const MeasureRow& row : kMeasureRows) {
    TextBox& box = this->*row.box;
    box.SetFont({.name = "Verdana", .size = 12, .bold = true});
    box.TextAlignment = Alignment::Centre;
    box.SetText("0");
  }
}

void Dialog::Form_Load() {
  form.CentreOn(platform_.screen);
  state_.NomeLayoutAperto = state_.NomeLayout;
  state_.LayoutModificato = 0;
  CartellaApp_ = WithBackslash(platform_.app.path);
  FillList();
  // The window opens whatever the layout is: one that cannot be read is told of, and can be deleted here.
  platform_.windows.Dispatch([this] {
    if (!state_.NomeLayout.empty()) {
      List1.SetListIndex(FindEntry(state_.NomeLayout));
    } else if (List1.ListCount() > 0) {
      List1.SetListIndex(0);
    }
  });
}

void Dialog::Form_Unload() {
  state_.CopCorrente = 0;
}

// Hidden files, too: a layout of an empty name, or of one that begins with a point, is one like any other.
void Dialog::FillList() {
  std::vector<std::string> names;
  ResumeNext([&] { names = platform_.files.ReadFolder(CartellaApp_).files; });
  for (const std::string& name : names) {
    if (name.size() < kLayoutExtension.size()) continue;
    const std::size_t length = name.size() - kLayoutExtension.size();
    if (CompareIgnoringCase(name.substr(length), kLayoutExtension) == 0)
      List1.AddItem(name.substr(0, length));
  }
}

void Dialog::OKButton_Click() {
  form.UnloadForm();
}

void Dialog::List1_KeyDown(int keyCode) {
  if (keyCode == kKeyEnter) OKButton_Click();
  if (keyCode == kKeyEscape) CancelButton_Click();
}

void Dialog::CancelButton_Click() {
  state_.NomeLayout = state_.NomeLayoutAperto;
  form.UnloadForm();
}

void Dialog::List1_Click() {
  AskAboutChanges(", si desidera salvare le modifiche?");
  if (state_.NumCopertine == 0) state_.NumCopertine = 1;
  CartellaApp_ = WithBackslash(platform_.app.path);
  if (platform_.files.FileExists(PathOf(List1.Text()))) LoadSelected();
  ShowCover(1);
}

// Neither answer saves.
void Dialog::AskAboutChanges(const std::string& question) {
  if (state_.LayoutModificato != 0) {
    platform_.windows.MsgBox("Il file ' " + state_.NomeLayout + " ' è stato modificato" + question,
                             MsgBoxButtons::YesNo);
  }
  state_.LayoutModificato = 0;
}

void Dialog::LoadSelected() {
  const std::string previous = state_.NomeLayout;
  try {
    const auto file = platform_.files.OpenForInput(PathOf(List1.Text()));
    state_.NomeLayout = List1.Text();
    ReadLayout(*file, state_, this);
  } catch (...) {
    // As with a file that has vanished, the layout before it stays the one that is edited.
    state_.NomeLayout = previous;
    ResumeNext([&] { ShowOrientation(); });
    ResumeNext([&] { ShowCover(1); });
    state_.LayoutModificato = 0;
    throw;
  }
}

void Dialog::settacop(const std::string& a) {
  const int index = FindEntry(a);
  if (index < 0) return;
  state_.CopCorrente = 1;
  List1.SetListIndex(index);
  ripitta();
}

// The first entry of this name, -1 when there is none.
int Dialog::FindEntry(const std::string& name) const {
  for (int index = 0; index < List1.ListCount(); ++index) {
    if (CompareIgnoringCase(List1.List(index), name) == 0) return index;
  }
  return -1;
}

void Dialog::ShowOrientation() {
  (state_.Orientamento != 0 ? Option2 : Option1).SetValue(true);
}

void Dialog::PaginaRead() {
  ShowOrientation();
}

// The option's handler writes into the cover that was on show before, and may mark the layout as modified:
// harmless where the file has that cover, whose line comes later.
void Dialog::CopertinaRead(int n) {
  if (n == 1) (state_.CopForma[1] != 0 ? Option4 : Option3).SetValue(true);
}

}  // namespace Morvane
