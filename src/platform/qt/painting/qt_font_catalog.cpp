#include "platform/qt/painting/qt_font_catalog.h"

#include <QFont>
#include <QFontDatabase>
#include <QStringList>
#include <algorithm>

namespace Morvane {
namespace {

struct StandIn {
  const char* family;
  const char* installed;  // with the same metrics
};

constexpr StandIn kStandIns[] = {
    {"Arial", "Liberation Sans"},
    {"Courier New", "Liberation Mono"},
    {"MS Sans Serif", "Liberation Sans"},
    {"MS Serif", "Liberation Serif"},
    {"Microsoft Sans Serif", "Liberation Sans"},
    {"Tahoma", "Liberation Sans"},
    {"Times New Roman", "Liberation Serif"},
    {"Verdana", "DejaVu Sans"},
};

// Each family once: the toolkit lists one of two makers twice, each time with the maker's name in brackets.
QStringList InstalledFamilies() {
  QStringList families = QFontDatabase::families();
  for (QString& family : families) family = family.section(" [", 0, 0);
  families.removeDuplicates();
  return families;
}

// Those whose own family is missing.
std::vector<StandIn> StandInsAmong(const QStringList& installed) {
  const auto has = [&](const char* family) { return installed.contains(family, Qt::CaseInsensitive); };
  std::vector<StandIn> found;
  for (const StandIn& one : kStandIns) {
    if (!has(one.family) && has(one.installed)) found.push_back(one);
  }
  return found;
}

}  // namespace

std::vector<std::string> QtFontCatalog::Families() const {
  const QStringList installed = InstalledFamilies();
  std::vector<std::string> families;
  for (const QString& family : installed) {
    if (!QFontDatabase::isPrivateFamily(family)) families.push_back(family.toStdString());
  }
  for (const StandIn& one : StandInsAmong(installed)) families.emplace_back(one.family);
  return families;
}

bool QtFontCatalog::CanPrint(const std::string& family) const {
  const QString wanted = QString::fromStdString(family);
  const auto isWanted = [&](const QString& name) { return name.compare(wanted, Qt::CaseInsensitive) == 0; };
  const QStringList installed = InstalledFamilies();
  const auto own = std::find_if(installed.begin(), installed.end(), isWanted);
  if (own != installed.end()) return QFontDatabase::isSmoothlyScalable(*own);
  const std::vector<StandIn> standIns = StandInsAmong(installed);
  return std::any_of(standIns.begin(), standIns.end(),
                     [&](const StandIn& one) { return isWanted(one.family); });
}

void InstallFontStandIns() {
  for (const StandIn& one : StandInsAmong(InstalledFamilies())) {
    QFont::insertSubstitution(one.family, one.installed);
  }
}

}  // namespace Morvane
