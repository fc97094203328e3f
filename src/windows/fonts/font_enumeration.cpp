#include "windows/fonts/font_enumeration.h"

namespace Morvane {

void ElencaFonts(ListBox& list, const FontCatalog& fonts) {
  list.Clear();
  for (const std::string& family : fonts.Families()) list.AddItem(family);
}

}  // namespace Morvane
