#pragma once

#include <string>
#include <vector>

#include "platform/drawing/drawing_surface.h"
#include "platform/drawing/printers.h"
#include "platform/font_catalog.h"

namespace Morvane {

// The printer of the program: a page to draw on, and the sheet that it stands for. Its origin is the corner
// of the printable area.
class Printer {
 public:
  Printer(Printers& device, const TextMetrics& metrics, const FontCatalog& fonts);

  // The page to draw on, as large as the sheet.
  DrawingSurface& Surface();

  // The physical sheet in the current orientation, in twips. RuntimeError PrinterFailure without a usable
  // printer.
  double Width();
  double Height();

  void SetOrientation(PageOrientation orientation) { orientation_ = orientation; }

  // RuntimeError InvalidPropertyValue for a family that cannot be used for printing; the font stays as it
  // was.
  void SetFontName(const std::string& family);

  PrintDialogAnswer ShowDialog(const PrintDialogRequest& request);

  // Sends the page as one job and begins an empty one; names the pictures that the sheet is without.
  // RuntimeError PrinterFailure; the page is empty then, too.
  std::vector<PicturePtr> EndDoc();

  // What the job is called in the queue.
  std::string JobTitle = "Morvane";

 private:
  Printers& device_;
  const FontCatalog& fonts_;
  DrawingSurface surface_;
  PageOrientation orientation_ = PageOrientation::Portrait;
};

}  // namespace Morvane
