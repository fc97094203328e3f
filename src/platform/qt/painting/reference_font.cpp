#include "platform/qt/painting/reference_font.h"

namespace Morvane {

QFont ReferenceFont(const Font& font) {
  QFont reference(QString::fromStdString(font.name));
  reference.setPixelSize(kReferencePixels);
  reference.setHintingPreference(QFont::PreferNoHinting);
  reference.setKerning(false);
  reference.setBold(font.bold);
  reference.setItalic(font.italic);
  return reference;
}

}  // namespace Morvane
