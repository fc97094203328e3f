#include "platform/qt/desktop/toolkit_gaps.h"

#include <string_view>

namespace Morvane {
namespace {

struct Gap {
  std::string_view context;
  std::string_view english;
  const char* italian;
};

constexpr Gap kGaps[] = {
    {"QPrintSettingsOutput", "Double Sided Printing", "Stampa fronte/retro"},
    {"QPrintSettingsOutput", "Off", "No"},
    {"QPrintSettingsOutput", "Long side binding", "Rilegatura sul lato lungo"},
    {"QPrintSettingsOutput", "Short side binding", "Rilegatura sul lato corto"},
    {"QPrintPropertiesWidget", "Advanced", "Avanzate"},
    {"QAbstractFileIconProvider", "Folder", "Cartella"},
};

}  // namespace

QString ToolkitGaps::translate(const char* context, const char* text, const char*, int) const {
  for (const Gap& gap : kGaps) {
    if (gap.context == context && gap.english == text) return gap.italian;
  }
  return {};
}

}  // namespace Morvane
