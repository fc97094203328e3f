#pragma once

#include "platform/controls/list_box.h"
#include "platform/text_metrics.h"

namespace Morvane {

// Fills the list with every installed font family; none is left out.
void ElencaFonts(ListBox& list, const FontCatalog& fonts);

}  // namespace Morvane
