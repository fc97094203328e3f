#pragma once

#include <span>
#include <string_view>

#include "platform/controls/bars.h"

namespace Morvane {

// What the commands of the main window do. Several commands reach one action.
enum class Action {
  None,
  CaricaImmagine1,
  CaricaImmagine2,
  ScegliLayout,
  LeggiCD,
  Stampa,
  Esci,
  Contorno,
  AvviaLindorel,
  RicercaOnline,
  ApriIndirizzo,  // the row's address
  ApriOmbranoKit,
  InformazioniPdf,
  Aiuto,
  Informazioni,
};

// One entry of the menu bar; depth 0 is a top-level menu. The caption "-" is a separator.
struct MenuRow {
  int depth;
  std::string_view name;
  std::string_view caption;
  std::string_view shortcut = {};
  Action action = Action::None;
  std::string_view address = {};
};

struct ToolRow {
  std::string_view key;  // empty for a separator
  ToolStyle style = ToolStyle::Separator;
  std::string_view toolTip = {};
  std::string_view imageKey = {};
  Action action = Action::None;
};

struct StatusRow {
  std::string_view text;
  std::string_view toolTip;
  Action action;
};

// An entry of the drop-down of the button Contorno, told by its text.
struct OutlineRow {
  std::string_view text;
  int spessoreBordo;
};

// The whole vocabulary of the main window, in the order shown.
std::span<const MenuRow> MenuRows();
std::span<const ToolRow> ToolRows();
std::span<const StatusRow> StatusRows();
std::span<const OutlineRow> OutlineRows();

}  // namespace Morvane
