#include "platform/qt/pictures/format_modules.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>
#include <mutex>
#include <utility>

namespace Morvane {
namespace {

// Folders of modules that are wanted later.
struct Others {
  std::mutex mutex;
  QStringList folders;
};

Others& TheOthers() {
  static Others others;
  return others;
}

}  // namespace

void InstallJpegWriter(OtherFormats others) {
  const QString program = QCoreApplication::applicationDirPath();
  for (const char* place : {"/plugins", "/../libexec/morvane/plugins"}) {
    const QString folder = program + place;
    if (!QFileInfo(folder + "/imageformats/morvane-jpeg.so").isFile()) continue;
    if (others == OtherFormats::Found) return QCoreApplication::addLibraryPath(folder);
    TheOthers().folders = QCoreApplication::libraryPaths();
    return QCoreApplication::setLibraryPaths({folder});
  }
}

void FindOtherFormats() {
  Others& others = TheOthers();
  const std::lock_guard lock(others.mutex);
  if (others.folders.isEmpty()) return;
  // Behind ours: the first module that can write a format does.
  QCoreApplication::setLibraryPaths(QCoreApplication::libraryPaths() + std::exchange(others.folders, {}));
}

}  // namespace Morvane
