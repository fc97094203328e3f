#pragma once

#include <string>
#include <vector>

#include "platform/drawing/drawing_list.h"
#include "platform/units.h"

namespace Morvane {

enum class PageOrientation { Portrait = 1, Landscape = 2 };

struct SheetSize {
  double widthTwips;
  double heightTwips;

  bool operator==(const SheetSize&) const = default;
};

inline constexpr SheetSize kA4 = {210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre};

// What the print dialog leaves out: a restricted one offers neither a page range nor a selection. None offers
// printing to a file.
struct PrintDialogRequest {
  bool restricted = true;
};

struct PrintDialogAnswer {
  bool accepted = false;
  int copies = 1;
};

// The machine's printers, one of them the current one. With no printer installed it is the program's own,
// which writes each job as a PDF file of A4 without margins.
class Printers {
 public:
  virtual ~Printers() = default;

  // The physical sheet of the current printer in portrait; A4 until the printer has been asked. RuntimeError
  // PrinterFailure when the printer does not answer.
  virtual SheetSize PortraitSheet() = 0;

  // Shows the print dialog; what is chosen there applies to the current printer. `orientation` goes in as the
  // dialog's preset and comes back as the user's choice.
  virtual PrintDialogAnswer ShowDialog(const PrintDialogRequest& request, PageOrientation& orientation) = 0;

  // Sends one page as a job of its own. Coordinates of `page` are twips from the corner of the printable
  // area. The result names the pictures that cannot be decoded, whose boxes stay empty. RuntimeError
  // PrinterFailure when the job is refused.
  virtual std::vector<PicturePtr> SendPage(const DrawingList& page, PageOrientation orientation,
                                           const std::string& title) = 0;
};

}  // namespace Morvane
