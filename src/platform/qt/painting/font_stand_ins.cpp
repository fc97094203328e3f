#include "platform/qt/painting/font_stand_ins.h"

#include <fontconfig/fontconfig.h>

#include <QFontDatabase>
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

// Asks for all families at once: a question for one goes through the rules of the whole machine.
std::vector<FontStandIn> FindUsable() {
  const QStringList installed = InstalledFamilies();
  const auto has = [&](const char* family) { return installed.contains(family, Qt::CaseInsensitive); };
  std::vector<FontStandIn> usable;
  for (const Pair& pair : kStandIns) {
    if (!has(pair.family) && has(pair.standIn)) usable.push_back({pair.family, pair.standIn});
  }
  return usable;
}

// To ask the toolkit for a missing family would be a search through all fonts.
QString FamilyToAskFor(const QString& family) {
  const std::vector<FontStandIn>& usable = UsableStandIns();
  const auto found = std::find_if(usable.begin(), usable.end(), [&](const FontStandIn& pair) {
    return family.compare(QString::fromStdString(pair.family), Qt::CaseInsensitive) == 0;
  });
  return found == usable.end() ? family : QString::fromStdString(found->standIn);
}

}  // namespace

QStringList InstalledFamilies() {
  QStringList families = QFontDatabase::families();
  for (QString& family : families) family = family.section(" [", 0, 0);
  families.removeDuplicates();
  return families;
}

const std::vector<FontStandIn>& UsableStandIns() {
  static const std::vector<FontStandIn> usable = FindUsable();
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
  QFont reference(FamilyToAskFor(QString::fromStdString(font.name)));
  reference.setPixelSize(kReferencePixels);
  reference.setHintingPreference(QFont::PreferNoHinting);
  reference.setKerning(false);
  reference.setBold(font.bold);
  reference.setItalic(font.italic);
  return reference;
}

}  // namespace Morvane
