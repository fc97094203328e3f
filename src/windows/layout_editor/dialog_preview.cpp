#include "core/listing_font.h"
#include "render/page_setup.h"
#include "windows/layout_editor/dialog.h"
#include "windows/layout_editor/measure_rows.h"

namespace Morvane {

namespace {

// The lowest-numbered cover whose box holds the point, 0 when there is none.
int CoverAt(const AppState& state, double x, double y) {
  for (int n = 1; n <= state.NumCopertine; ++n) {
    if (CoverHolds(state, n, x, y)) return n;
  }
  return 0;
}

std::string TwoDigits(int n) {
  const std::string digits = "0" + std::to_string(n);
  return digits.substr(digits.size() - 2);
}

}  // namespace

// The sheet's long side is the list's height.
void Dialog::ripitta() {
  RepairListingFontSize(state_);
  const double h = List1.Height();
  if (state_.Orientamento == 1) {
    Picture1.SetWidth(h);
    Picture1.SetHeight((210 * h) / 297);
  } else {
    Picture1.SetHeight(h);
    Picture1.SetWidth(210 * (h / 297));
  }
  state_.SuSchermo = 1;
  const double ratio = ImpostaPagina(Picture1.Surface, state_, platform_.printer);
  DisegnaCopertine(Picture1.Surface, ratio, state_, slots_);
}

// Cover 100 shows as "Ogg.00", by which the writer knows to take every cover from the tables.
void Dialog::RiOggetta() {
  Label4.SetCaption("Ogg." + TwoDigits(state_.CopCorrente));
  const auto n = static_cast<std::size_t>(state_.CopCorrente);
  (state_.CopForma[n].value_or(0) == 0 ? Option3 : Option4).SetValue(true);
  for (const MeasureRow& row : kMeasureRows) (this->*row.box).SetText(StoredText(row));
}

void Dialog::ShowCover(int n) {
  state_.CopCorrente = static_cast<std::int16_t>(n);
  RiOggetta();
  ripitta();
}

void Dialog::Picture1_MouseDown(MouseButton button, double x, double y) {
  if (button != MouseButton::Left) return;
  const int n = CoverAt(state_, x, y);
  if (n > 0) ShowCover(n);
}

void Dialog::Picture1_MouseMove(double x, double y) {
  const int n = CoverAt(state_, x, y);
  Picture1.SetToolTipText(n > 0 ? "Copertina n." + std::to_string(n) + "/" +
                                      std::to_string(state_.NumCopertine) +
                                      " clicca col mouse per modificare i parametri"
                                : "Scegli la copertina da modificare quindi cliccala.");
}

}  // namespace Morvane
