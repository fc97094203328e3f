#include "platform/qt/desktop/toolkit_italian.h"

#include <QCoreApplication>
#include <QLibraryInfo>
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

// The translator that was installed last is asked first.
ToolkitItalian::ToolkitItalian() {
  QCoreApplication::installTranslator(&gaps_);
  if (shipped_.load("qtbase_it", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&shipped_);
}

}  // namespace Morvane
