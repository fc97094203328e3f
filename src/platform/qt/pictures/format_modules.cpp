#include "platform/qt/pictures/format_modules.h"

#include <QCoreApplication>
#include <QStringList>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>

#include "platform/files/program_part.h"

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
  const std::filesystem::path module = ProgramPart("plugins/imageformats/morvane-jpeg.so");
  std::error_code unreachable;
  if (!exists(module, unreachable)) return;
  const QString folder = QString::fromStdString(module.parent_path().parent_path().string());
  if (others == OtherFormats::Found) return QCoreApplication::addLibraryPath(folder);
  TheOthers().folders = QCoreApplication::libraryPaths();
  QCoreApplication::setLibraryPaths({folder});
}

void FindOtherFormats() {
  Others& others = TheOthers();
  const std::lock_guard lock(others.mutex);
  if (others.folders.isEmpty()) return;
  // Behind ours: the first module that can write a format does.
  QCoreApplication::setLibraryPaths(QCoreApplication::libraryPaths() + std::exchange(others.folders, {}));
}

}  // namespace Morvane
