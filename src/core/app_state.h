#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Morvane {

// Covers are numbered from 1 to this; cell 0 of each table is never used.
inline constexpr int kMaxCovers = 100;

template <typename Value>
using CoverTable = std::array<Value, kMaxCovers + 1>;

// What a layout file fills: the cover records, spread over parallel tables, their count and the page.
// The tables are never cleared: a cell above NumCopertine keeps what it last held, and adding a cover in the
// editor shows it again.
struct LayoutTables {
  CoverTable<std::optional<double>> CopForma{};  // 0 or empty: rectangle; else ellipse
  CoverTable<double> CopLarg{};   // width of the box, centimetres; 0 and negative are stored too
  CoverTable<double> CopAlte{};   // height of the box, centimetres; as CopLarg
  CoverTable<double> CopDistx{};  // left edge from the left of the page, inches
  CoverTable<double> CopDisty{};  // top edge from the top of the page, inches

  std::int16_t NumCopertine = 0;  // covers of the layout; 0 only until the main window's first resize
  std::int16_t Orientamento = 0;  // 0 portrait, 1 landscape; a hand-made file can give others

  bool operator==(const LayoutTables&) const = default;
};

// The state that all windows share. One thread; one object for the run, passed by reference. Everything is
// zero or empty at start unless a default stands here.
struct AppState : LayoutTables {
  // Sizes in inches, written by each drawing for the covers that it draws; 0 before the first.
  CoverTable<double> CopLargPollici{};
  CoverTable<double> CopAltePollici{};

  // The layout and the editor.
  std::int16_t MaxCopertine = 0;         // at most kMaxCovers; set by the main window's load step
  std::int16_t CopCorrente = 0;          // cover being edited; 0 while the editor is closed
  std::int16_t LayoutModificato = 0;     // 0 or -1: the editor holds a change that the file lacks
  std::string NomeLayout;                // current layout file without folder and extension; empty: none
  std::string NomeLayoutAperto;          // NomeLayout when the editor opened; its Cancel restores it
  std::optional<LayoutTables> lastRead;  // covers as a layout file brought them last; empty: none did

  // The page of the workspace and the drawing.
  double PaginaLarg = 0;           // millimetres
  double PaginaAlte = 0;           // millimetres
  std::int16_t SpessoreBordo = 0;  // passes of the outline; kept in the settings file
  std::int16_t SuSchermo = 0;      // 1 while the target is a screen, 0 during a print job
  int ShowCmd = 0;                 // how what is started shows: as it likes, for the whole run

  // The program and its machine.
  std::string AppPath;          // the program's folder with a trailing backslash
  char decimalSeparator = '.';  // of the user's locale, '.' or ','; set once, before the first window

  // The image picker.
  std::string FileFolder;                  // last image folder; kept in the settings file
  std::string ImmagineScelta;              // full path of the picked image; empty: none
  std::string ImmaginePrecedente;          // copy of ImmagineScelta
  std::string CartellaImmagini;            // listed folder with a trailing backslash
  std::vector<std::string> ListaImmagini;  // cells 0 to 9999 once a folder is listed; names from cell 1 on
  std::string CartellaAlbero;              // folder selected in the tree
  std::string CartellaDesktop;             // the user's desktop folder, set when the tree is built

  // The contents listing.
  std::string CartellaElenco;         // folder last chosen
  std::int16_t ElencoColonne = 2;     // 2 to 7
  std::string ElencoFontName;         // family name
  float ElencoFontSize = 0;           // points; each drawing repairs it first: 0 becomes 8, below 2 becomes 2
  std::int16_t ElencoFontBold = 0;    // 0 or 1
  std::int16_t ElencoFontItalic = 0;  // 0 or 1
  std::int16_t ElencoRighe = 0;       // running count of the folder scan, limit 1000
};

}  // namespace Morvane
