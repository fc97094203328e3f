#include "windows/fonts/fonten.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "core/number_text.h"
#include "platform/runtime_error.h"

namespace Morvane {

namespace {

constexpr FormRow kWindow = {
    .name = "fONTEN", .caption = "Scelta carattere", .clientWidth = 6405, .clientHeight = 5370};

// clang-format off
// name, caption, tool-tip, left, top, width, height, spoken name
constexpr std::array kControls = {
    ControlRow{"Label2", "Altezza font", "", 360, 90, 945, 255},
    ControlRow{"Text1", "", "", 1290, 60, 405, 315, "Altezza font"},
    ControlRow{"Label1", "", "", 2250, 60, 3945, 285},
    ControlRow{"LstFonts", "", "", 330, 390, 3825, 2985, "Fonts installati"},
    ControlRow{"cmdCancel", "&Annulla", "Annulla", 5280, 420, 915, 975},
    ControlRow{"cmdOK", "&OK", "OK, Confermi", 5280, 1470, 915, 975},
    ControlRow{"Check3d1", "Corsivo", "", 4890, 2520, 1275, 192},
    ControlRow{"Check3d2", "Grassetto", "", 4890, 2790, 1275, 192},
    ControlRow{"TxtFontPreview", "", "", 300, 3630, 5925, 1275, "Anteprima"},
};
// clang-format on

constexpr double kSampleSize = 20;  // points, whatever the chosen height
constexpr double kLargestSize = 25;
constexpr double kSmallestSize = 2;
constexpr const char* kSampleText = " - aAbB 123 zZ";
constexpr const char* kFallbackFont = "Arial";
constexpr const char* kNotAvailable =
    "Font scelto non disponibile, verrà scelto l'Arial a video ed in stampa.";

// Every installed family; none is left out.
void ElencaFonts(ListBox& list, const FontCatalog& fonts) {
  list.Clear();
  for (const std::string& family : fonts.Families()) list.AddItem(family);
}

}  // namespace

fONTEN::fONTEN(AppState& state, Platform& platform) : form(kWindow), state_(state), platform_(platform) {
  form.LayOut(kControls);
  LstFonts.Sorted = true;
  LstFonts.SetFont({.name = "MS Sans Serif", .size = 8});
  Text1.SetText("8");
  cmdCancel.SetImageKey("annulla");
  cmdOK.SetImageKey("ok");
  cmdOK.Default = true;
  cmdCancel.Cancel = true;

  form.Load = [this] { Form_Load(); };
  form.Paint = [this] { Form_Paint(); };
  LstFonts.Click = [this] { LstFonts_Click(); };
  Check3d1.Click = [this] { Check3d1_Click(); };
  Check3d2.Click = [this] { Check3d2_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void fONTEN::Form_Load() {
  form.CentreOn(platform_.screen);
  ElencaFonts(LstFonts, platform_.fonts);
  Label1.SetCaption("N. " + std::to_string(LstFonts.ListCount() + 1) + " Fonts installati");
}

// When the window is uncovered the list goes back to the font in use.
void fONTEN::Form_Paint() {
  for (int i = 0; i < LstFonts.ListCount(); ++i) {
    if (LstFonts.List(i) == state_.ElencoFontName) return LstFonts.SetListIndex(i);
  }
}

void fONTEN::LstFonts_Click() {
  TxtFontPreview.SetText(LstFonts.Text() + kSampleText);
  Font font = TxtFontPreview.GetFont();
  font.name = LstFonts.Text();
  font.size = kSampleSize;
  TxtFontPreview.SetFont(font);
}

void fONTEN::Check3d1_Click() {
  Font font = TxtFontPreview.GetFont();
  font.italic = Check3d1.Value() == 1;
  TxtFontPreview.SetFont(font);
}

void fONTEN::Check3d2_Click() {
  Font font = TxtFontPreview.GetFont();
  font.bold = Check3d2.Value() == 1;
  TxtFontPreview.SetFont(font);
}

void fONTEN::cmdOK_Click() {
  state_.ElencoFontName = LstFonts.Text();
  UsaInStampa();
  const bool italic = Check3d1.Value() == 1;
  const bool bold = Check3d2.Value() == 1;
  // After a refused font, too, the user's italic and bold apply.
  platform_.printer.Surface().SetFontItalic(italic);
  platform_.printer.Surface().SetFontBold(bold);
  state_.ElencoFontBold = static_cast<std::int16_t>(Check3d2.Value());
  state_.ElencoFontItalic = static_cast<std::int16_t>(Check3d1.Value());
  if (Val(Text1.Text()) > kLargestSize) Text1.SetText("25");
  SetWindowFont(state_.ElencoFontName, italic, bold);
  // Unlike the upper limit, the lower one leaves the box as typed.
  state_.ElencoFontSize = static_cast<float>(std::max(Val(Text1.Text()), kSmallestSize));
  form.Hide();
}

void fONTEN::UsaInStampa() {
  try {
    platform_.printer.SetFontName(state_.ElencoFontName);
  } catch (const RuntimeError&) {
    ScegliArial();
  }
}

void fONTEN::ScegliArial() {
  platform_.windows.MsgBox(kNotAvailable);
  state_.ElencoFontName = kFallbackFont;
  platform_.printer.SetFontName(kFallbackFont);
}

void fONTEN::SetWindowFont(const std::string& family, bool italic, bool bold) {
  Font font = form.GetFont();
  font.name = family;
  font.italic = italic;
  font.bold = bold;
  form.SetFont(font);
}

}  // namespace Morvane
