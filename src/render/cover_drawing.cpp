#include "render/cover_drawing.h"

#include <string>

#include "core/web_addresses.h"
#include "platform/resume_next.h"
#include "platform/units.h"

namespace Morvane {

namespace {

constexpr double kPassoBordo = 0.009;  // inches between successive outline lines
constexpr double kFooterSize = 9;      // points on paper
constexpr double kFooterLeft = 1;      // inches
constexpr double kFooterRise = 0.3;    // inches above the top of cover 1
constexpr double kMarkWidth = 0.06;    // inches
constexpr int kMarkColor = 13;

struct Cover {
  double x, y, w, h;  // inches
};

Cover CoverBox(const AppState& state, int number) {
  const auto n = static_cast<std::size_t>(number);
  return {state.CopDistx[n], state.CopDisty[n], state.CopLargPollici[n], state.CopAltePollici[n]};
}

void DrawRectangle(DrawingSurface& objPrint, const Cover& cover, int lines, Color color) {
  const double s = kPassoBordo;
  // Two steps more on the left and at the top than on the right and below: sheets that people have cut along
  // these lines fit their cases.
  for (int j = 1; j <= lines; ++j) {
    objPrint.Line(cover.x - s - s * (j + 1), cover.y - s - s * (j + 1), cover.x + cover.w + s + s * (j - 1),
                  cover.y + cover.h + s + s * (j - 1), LineStyle::Box, color);
  }
}

void DrawEllipse(DrawingSurface& objPrint, const Cover& cover, int lines, Color color) {
  const double s = kPassoBordo;
  // The radius comes from the width alone; of a cover taller than wide the outline is smaller than itself, as
  // in the layouts that were made for it.
  for (int j = 1; j <= lines; ++j) {
    ResumeNext([&] {
      objPrint.Circle(cover.x + cover.w / 2, cover.y + cover.h / 2, cover.w / 2 + s + s * (j - 1), color,
                      cover.h / cover.w);
    });
  }
}

void DrawOutlines(DrawingSurface& objPrint, const AppState& state) {
  for (int n = 1; n <= state.NumCopertine; ++n) {
    const Color color = QBColor(n == state.CopCorrente ? kMarkColor : 0);
    const bool rectangle = state.CopForma[static_cast<std::size_t>(n)].value_or(0) == 0;
    (rectangle ? DrawRectangle : DrawEllipse)(objPrint, CoverBox(state, n), state.SpessoreBordo, color);
  }
}

void DrawPictures(DrawingSurface& objPrint, const AppState& state, const CoverSlots& slots) {
  for (int n = 1; n <= state.NumCopertine; ++n) {
    const PicturePtr& picture = slots.Image1[static_cast<std::size_t>(n - 1)];
    if (!picture) continue;
    const Cover cover = CoverBox(state, n);
    ResumeNext([&] { objPrint.PaintPicture(picture, cover.x, cover.y, cover.w, cover.h); });
  }
}

void DrawFooter(DrawingSurface& objPrint, const AppState& state, double ratio) {
  objPrint.SetFontName("Arial");
  objPrint.CurrentX = kFooterLeft;
  objPrint.CurrentY = state.CopDisty[1] - kFooterRise;
  ResumeNext([&] { objPrint.SetFontSize(kFooterSize * ratio); });
  objPrint.Print("Stampato con 'Morvane' - " + std::string(WebAddresses::kMakerSite));
}

}  // namespace

void DisegnaCopertine(DrawingSurface& objPrint, double ratio, AppState& state, const CoverSlots& slots) {
  for (std::size_t n = 1; static_cast<int>(n) <= state.NumCopertine; ++n) {
    state.CopLargPollici[n] = state.CopLarg[n] / kCentimetresPerInch;
    state.CopAltePollici[n] = state.CopAlte[n] / kCentimetresPerInch;
  }
  if (slots.outlinesOn) DrawOutlines(objPrint, state);
  DrawPictures(objPrint, state, slots);
  // On a screen the outlines stand on top of the pictures, too; on paper a picture may cover a neighbour's.
  if (state.SuSchermo != 0 && slots.outlinesOn) DrawOutlines(objPrint, state);
  DrawFooter(objPrint, state, ratio);
}

void MarkCover(DrawingSurface& objPrint, const AppState& state, int n) {
  const auto [x, y, w, h] = CoverBox(state, n);
  const auto strip = [&](double x1, double y1, double x2, double y2) {
    objPrint.Line(x1, y1, x2, y2, LineStyle::FilledBox, QBColor(kMarkColor));
  };
  strip(x, y, x + w, y + kMarkWidth);
  strip(x, y + h - kMarkWidth, x + w, y + h);
  strip(x, y, x + kMarkWidth, y + h);
  strip(x + w - kMarkWidth, y, x + w, y + h);
}

bool CoverHolds(const AppState& state, int n, double x, double y) {
  const Cover cover = CoverBox(state, n);
  return x > cover.x && x < cover.x + cover.w && y > cover.y && y < cover.y + cover.h;
}

}  // namespace Morvane
