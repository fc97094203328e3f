#pragma once

#include <string>
#include <vector>

#include "platform/drawing/printers.h"

namespace Morvane {

// Writes a drawing as a PDF file of one sheet without margins, at true scale. `sheet` is the sheet in
// portrait; `nativePath` is replaced as a whole or not at all. RuntimeError PrinterFailure when it cannot be
// written. The result names the pictures that cannot be decoded, whose boxes stay empty.
std::vector<PicturePtr> WritePdf(const std::string& nativePath, const DrawingList& drawing,
                                 PageOrientation orientation, SheetSize sheet, const std::string& title);

}  // namespace Morvane
