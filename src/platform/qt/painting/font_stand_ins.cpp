#include "platform/qt/painting/font_stand_ins.h"

#include <fontconfig/fontconfig.h>

#include <QFontDatabase>
#include <QStringList>
#include <algorithm>
#include <array>

namespace Morvane {
namespace {

struct Pair {
  const char* family;
  const char* standIn;
};

constexpr std::array<Pair, 8> kStandIns = {{
    {"Arial", "Liberation Sans"},
    {"Courier New", "Liberation Mono"},
    {"MS Sans Serif", "Liberation Sans"},
    {"MS Serif", "Liberation Serif"},
    {"Microsoft Sans Serif", "Liberation Sans"},
    {"Tahoma", "Liberation Sans"},
    {"Times New Roman", "Liberation Serif"},
    {"Verdana", "DejaVu Sans"},
}};

const Pair* FindStandIn(const QString& family) {
  const auto found = std::find_if(kStandIns.begin(), kStandIns.end(), [&](const Pair& pair) {
    return family.compare(QLatin1String(pair.family), Qt::CaseInsensitive) == 0;
  });
  return found == kStandIns.end() ? nullptr : &*found;
}

}  // namespace

// Asks for all families at once: a question for one goes through the rules of the whole machine.
std::vector<FontStandIn> UsableStandIns() {
  const QStringList installed = QFontDatabase::families();
  const auto has = [&](const char* family) { return installed.contains(family, Qt::CaseInsensitive); };
  std::vector<FontStandIn> usable;
  for (const Pair& pair : kStandIns) {
    if (!has(pair.family) && has(pair.standIn)) usable.push_back({pair.family, pair.standIn});
  }
  return usable;
}

std::future<void> ReadFontRules() {
  return std::async(std::launch::async, [] { FcInit(); });
}

void InstallFontStandIns() {
  for (const FontStandIn& pair : UsableStandIns()) {
    QFont::insertSubstitution(QString::fromStdString(pair.family), QString::fromStdString(pair.standIn));
  }
}

QFont ReferenceFont(const Font& font) {
  const QString family = QString::fromStdString(font.name);
  QFont reference(family);
  if (const Pair* pair = FindStandIn(family)) reference.setFamilies({family, pair->standIn});
  reference.setPixelSize(kReferencePixels);
  reference.setHintingPreference(QFont::PreferNoHinting);
  reference.setKerning(false);
  reference.setBold(font.bold);
  reference.setItalic(font.italic);
  return reference;
}

}  // namespace Morvane
