#include "windows/contents/listing_composition.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "core/number_text.h"
#include "core/web_addresses.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace Morvane {

namespace {

// All of the sheet in millimetres.
struct Panel {
  double firstColumn;  // left edge of column 0
  double firstLine;    // top of each column
  double bottom;       // a line that would pass it goes to the next column
  double clearWidth;   // divided by the columns
  double clearOffset;
  double pitch;  // divided by the columns
  double columnOffset;
  double clearTop;
  double clearBottom;
  double clearBehind;  // what stands right of it is wiped once the panel is full
  bool trimsLines;     // blanks before the "(" of a heading don't count
};

// clang-format off
//                        column 0 | first line | bottom | clearing      | pitch    | clearing: top, bottom, behind | trims
constexpr Panel kFront = {  21,       21,          140,     118, 20,        120, 21,    20,  141, 140,                 true};
constexpr Panel kBack  = {  27,       142,         259,     135, 26,        137, 27,    141, 259, 164,                 false};

struct Lines { double x1, y1, x2, y2; LineStyle style; };

constexpr Lines kOutlines[] = {
    { 20,  20, 141, 141, LineStyle::Box},   // front panel
    { 20, 141, 170, 259, LineStyle::Box},   // back panel
    { 26, 141,  26, 259, LineStyle::Line},  // left spine
    {164, 141, 164, 259, LineStyle::Line},  // right spine
};
// clang-format on

constexpr double kWipeX = 163;
constexpr double kWipeTop = 140;
constexpr double kWipeBottom = 258;

constexpr double kSpineTop = 141;
constexpr double kSpineLength = 118;
constexpr double kSpineCentres[] = {23, 167};
constexpr int kSpineFontSize = 11;  // points on paper

constexpr double kFooterX = 20;
constexpr double kFooterY = 266;
constexpr double kFooterFontSize = 7;

class Composition {
 public:
  Composition(DrawingSurface& page, double ratio, AppState& state, const ListingSheet& sheet)
      : page_(page), ratio_(ratio), state_(state), sheet_(sheet), characters_(Characters(sheet.Text1)) {}

  LineCount Compose() {
    SetFont();
    DrawTitle();
    const LineCount notPrinted = DrawListing();
    Wipe(kWipeX, kWipeTop, kWipeBottom);
    const float length = FitSpines();
    for (const double centre : kSpineCentres) DrawSpine(centre, length);
    for (const Lines& line : kOutlines) page_.Line(line.x1, line.y1, line.x2, line.y2, line.style);
    DrawFooter();
    return notPrinted;
  }

 private:
  static std::vector<std::string> Characters(const std::string& text) {
    std::vector<std::string> characters;
    for (std::size_t at = 0; at < text.size();) {
      characters.push_back(text.substr(at, ReadUtf8(text, at).length));
      at += characters.back().size();
    }
    return characters;
  }

  void SetFont() {
    if (state_.ElencoFontName.empty()) state_.ElencoFontName = "Arial";
    page_.SetFontName(state_.ElencoFontName);
    page_.SetFontSize(state_.ElencoFontSize * ratio_);
    page_.SetFontBold(state_.ElencoFontBold != 0);
    page_.SetFontItalic(state_.ElencoFontItalic != 0);
  }

  // Leaves the weight normal: only headings of the listing are bold, whatever the user chose.
  void DrawTitle() {
    page_.CurrentX = kFront.firstColumn;
    page_.CurrentY = kFront.firstLine;
    page_.SetFontBold(true);
    page_.SetFontUnderline(true);
    page_.Print(sheet_.Text1);
    page_.SetFontUnderline(false);
    page_.SetFontBold(false);
  }

  LineCount DrawListing() {
    std::size_t drawn = FillPanel(kFront, 0);
    Wipe(kFront.clearBehind, kFront.clearTop, kFront.clearBottom);
    if (drawn <= sheet_.List1.Kept().size()) {
      page_.CurrentY = kBack.firstLine;
      drawn = FillPanel(kBack, drawn);
    }
    return sheet_.List1.ListCount() - std::min(drawn, sheet_.List1.Kept().size());
  }

  // The index of the first line that found no place, or one past the end of the list, which has a step of its
  // own: it breaks the column when the list ends just where the column does.
  std::size_t FillPanel(const Panel& panel, std::size_t from) {
    const std::vector<std::string>& lines = sheet_.List1.Kept();
    const double lineHeight = page_.TextHeight("J");
    int column = 0;
    std::int16_t elencoX = ToInteger16(panel.firstColumn);
    for (std::size_t i = from; i <= lines.size(); ++i) {
      if (page_.CurrentY + lineHeight > panel.bottom) {
        if (++column >= state_.ElencoColonne) {
          Wipe(panel.clearBehind, panel.clearTop, panel.clearBottom);
          return i;
        }
        elencoX = BeginColumn(panel, column);
      }
      page_.CurrentX = elencoX;
      if (i < lines.size()) PrintListLine(panel, lines[i]);
    }
    return lines.size() + 1;
  }

  // Nothing shortens a line: the white box wipes what stands beyond its column. Returns the left edge.
  std::int16_t BeginColumn(const Panel& panel, int column) {
    const double columns = state_.ElencoColonne;
    Wipe(panel.clearWidth / columns * column + panel.clearOffset, panel.clearTop, panel.clearBottom);
    page_.CurrentY = panel.firstLine;
    return ToInteger16(panel.pitch / columns * column + panel.columnOffset);
  }

  void PrintListLine(const Panel& panel, const std::string& line) {
    if (line.empty()) return;
    if ((panel.trimsLines ? Trim(line) : line).starts_with('(')) {
      page_.SetFontBold(true);
      page_.Print(line);
      page_.SetFontBold(false);
    } else if (sheet_.fullPaths) {
      page_.Print(line);
    } else {
      page_.Print(line.substr(line.rfind('\\') + 1));
    }
  }

  // The surface's width is in twips; as millimetres it lies beyond the right edge of any sheet.
  void Wipe(double x, double top, double bottom) {
    page_.Line(x, top, page_.Width(), bottom, LineStyle::FilledBox, QBColor(15));
  }

  // The length of the title on the spines, at the largest size that fits.
  float FitSpines() {
    page_.SetFontBold(true);
    for (int points = kSpineFontSize;; --points) {
      page_.SetFontSize(points * ratio_);
      const double letters = static_cast<double>(characters_.size());
      const auto length = static_cast<float>(letters * page_.TextHeight("j"));
      if (length <= kSpineLength) return length;
    }
  }

  void DrawSpine(double centre, float length) {
    page_.CurrentY = kSpineLength / 2 + kSpineTop - length / 2;
    for (const std::string& character : characters_) {
      page_.CurrentX = centre - page_.TextWidth(character) / 2;
      page_.Print(character);
    }
  }

  void DrawFooter() {
    page_.CurrentX = kFooterX;
    page_.CurrentY = kFooterY;
    page_.SetFontSize(kFooterFontSize * ratio_);
    page_.SetFontBold(false);
    page_.Print("Creazione e stampa con Morvane - " + std::string(WebAddresses::kMakerSite));
    page_.CurrentX = kFooterX;
  }

  DrawingSurface& page_;
  double ratio_;
  AppState& state_;
  const ListingSheet& sheet_;
  std::vector<std::string> characters_;
};

}  // namespace

LineCount PrintRoutineAAAA(DrawingSurface& objPrint, double Ratio, AppState& state,
                           const ListingSheet& sheet) {
  return Composition(objPrint, Ratio, state, sheet).Compose();
}

}  // namespace Morvane
