#include "platform/drawing/printer.h"

#include "platform/resume_next.h"

namespace Morvane {

Printer::Printer(Printers& device, const TextMetrics& metrics, const FontCatalog& fonts)
    : device_(device), fonts_(fonts), surface_(metrics) {}

DrawingSurface& Printer::Surface() {
  ResumeNext([&] { surface_.SetSize(Width(), Height()); });
  return surface_;
}

double Printer::Width() {
  const SheetSize sheet = device_.PortraitSheet();
  return orientation_ == PageOrientation::Landscape ? sheet.heightTwips : sheet.widthTwips;
}

double Printer::Height() {
  const SheetSize sheet = device_.PortraitSheet();
  return orientation_ == PageOrientation::Landscape ? sheet.widthTwips : sheet.heightTwips;
}

void Printer::SetFontName(const std::string& family) {
  if (!fonts_.CanPrint(family)) {
    throw RuntimeError(ErrorNumber::InvalidPropertyValue,
                       "Il carattere '" + family + "' non è disponibile in stampa.");
  }
  surface_.SetFontName(family);
}

PrintDialogAnswer Printer::ShowDialog(const PrintDialogRequest& request) {
  return device_.ShowDialog(request, orientation_);
}

std::vector<PicturePtr> Printer::EndDoc() {
  const DrawingList page = surface_.TakeDrawing();
  return device_.SendPage(page, orientation_, JobTitle);
}

}  // namespace Morvane
