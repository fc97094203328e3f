#include <algorithm>
#include <random>

#include "core/number_text.h"
#include "platform/units.h"
#include "windows/layout_editor/dialog.h"
#include "windows/layout_editor/measure_rows.h"

namespace Morvane {

namespace {

constexpr double kLowestForStepDown = 1.99;  // millimetres; only above it
constexpr double kNewCoverSide = 5;          // centimetres

// Inches: one of the 30 whole millimetres from `firstMm` on.
double RandomPlace(std::minstd_rand& rnd, int firstMm) {
  return (firstMm + static_cast<int>(rnd() % 30)) / kCentimetresPerInch / 10;
}

// The covers behind cover n move up by one; the last cell keeps its content. The pictures do not move along:
// each stays with its number, and so shows in the cover that took the number over.
void CloseGap(LayoutTables& tables, int n) {
  const auto shift = [&](auto& table) {
    std::copy(table.begin() + n + 1, table.begin() + tables.NumCopertine + 1, table.begin() + n);
  };
  shift(tables.CopForma);
  for (const Measure& measure : kMeasures) shift(tables.*measure.table);
}

}  // namespace

void Dialog::ChooseOrientation(std::int16_t orientation) {
  const std::int16_t before = state_.Orientamento;
  state_.Orientamento = orientation;
  ripitta();
  if (state_.Orientamento != before) MarkModified();
}

void Dialog::ChooseShape(double shape) {
  if (state_.CopCorrente == 0) state_.CopCorrente = 1;
  auto& cell = state_.CopForma[static_cast<std::size_t>(state_.CopCorrente)];
  const double before = cell.value_or(0);
  cell = shape;
  ripitta();
  if (shape != before) MarkModified();
}

// While the current file is missing no cover is on show.
void Dialog::StepDown(const MeasureRow& row) {
  const double mm = Val((this->*row.box).Text());
  if (state_.CopCorrente == 0 || mm <= kLowestForStepDown) return;
  TakeStep(row, mm - 1);
  if (row.downMarksModified) MarkModified();
}

void Dialog::StepUp(const MeasureRow& row) {
  if (state_.CopCorrente == 0) return;
  TakeStep(row, Val((this->*row.box).Text()) + 1);
  MarkModified();
}

// What is stored is what the box shows: with a decimal comma a fraction is lost here.
void Dialog::TakeStep(const MeasureRow& row, double mm) {
  (this->*row.box).SetText(NumberToText(mm, state_.decimalSeparator));
  CellOnShow(row) = StoredValue(row);
  ripitta();
}

void Dialog::Text_LostFocus(const MeasureRow& row) {
  // The text that shows what is stored stands for it: another number may be computed from it, in the last bit
  // or for a decimal comma.
  if (state_.CopCorrente == 0 || (this->*row.box).Text() == StoredText(row)) return;
  const double value = StoredValue(row);
  if (value != CellOnShow(row)) MarkModified();
  CellOnShow(row) = value;
  ripitta();
}

// Enter takes over the measure, as leaving the box does, and the window stays open.
void Dialog::Text_KeyDown(const MeasureRow& row, int keyCode) {
  if (keyCode == kKeyEnter) Text_LostFocus(row);
  if (keyCode == kKeyEscape) CancelButton_Click();
}

// A new cover takes the shape that its slot last held.
void Dialog::Command17_Click() {
  if (state_.NumCopertine >= state_.MaxCopertine) {
    platform_.windows.MsgBox("È stato raggiunto il numero massimo di " + std::to_string(state_.MaxCopertine) +
                             " copertine.");
    return;
  }
  ++state_.NumCopertine;
  const auto n = static_cast<std::size_t>(state_.NumCopertine);
  state_.CopLarg[n] = kNewCoverSide;
  state_.CopAlte[n] = kNewCoverSide;
  state_.CopDistx[n] = RandomPlace(rnd_, 25);
  state_.CopDisty[n] = RandomPlace(rnd_, 155);
  ShowCover(state_.NumCopertine);
  MarkModified();
}

void Dialog::Command18_Click() {
  if (state_.NumCopertine < 2) {
    platform_.windows.MsgBox("Il layout di un file di copertine deve contenerne almeno una.");
    return;
  }
  if (state_.CopCorrente == 0) return;
  CloseGap(state_, state_.CopCorrente);
  --state_.NumCopertine;
  ShowCover(1);
  MarkModified();
}

void Dialog::Command3_Click() {
  if (state_.CopCorrente > 1) ShowCover(state_.CopCorrente - 1);
}

void Dialog::Command4_Click() {
  if (state_.CopCorrente < state_.NumCopertine) ShowCover(state_.CopCorrente + 1);
}

void Dialog::Command15_Click() {
  platform_.windows.MsgBox(
      "Si può scegliere di usare un modello (layout) di copertine preimpostato selezionandolo e cliccando su "
      "<Apri>, eventualmente si possono modificare i layout esistenti (misure e distanze delle copertine) "
      "oppure si possono creare infiniti layout personalizzati cliccando su <Nuovo file>, le copertine "
      "all'interno della pagina (oggetti) si selezionano cliccandole, per inserire/togliere un oggetto "
      "cliccare sui bottoni <+> e <-> nella colonna 'Ogg.XX' della tabella sottostante.");
}

double Dialog::StoredValue(const MeasureRow& row) const {
  return row.measure.stored(Val((this->*row.box).Text()));
}

double& Dialog::CellOnShow(const MeasureRow& row) {
  return (state_.*row.measure.table)[static_cast<std::size_t>(state_.CopCorrente)];
}

std::string Dialog::StoredText(const MeasureRow& row) {
  return NumberToText(row.measure.mm(CellOnShow(row)), state_.decimalSeparator);
}

void Dialog::MarkModified() {
  state_.LayoutModificato = -1;
}

}  // namespace Morvane
