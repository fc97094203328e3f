#include <fontconfig/fontconfig.h>
#include <malloc.h>
#include <pwd.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <QLocale>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <future>
#include <memory>

#include "platform/files/app_folder.h"
#include "platform/files/file_system.h"
#include "platform/qt/desktop/qt_http_client.h"
#include "platform/qt/desktop/qt_launcher.h"
#include "platform/qt/desktop/qt_screen.h"
#include "platform/qt/desktop/qt_window_system.h"
#include "platform/qt/painting/qt_font_catalog.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/printing/qt_printers.h"
#include "windows/main_window/program.h"

namespace {

using namespace Morvane;

// From the window's coming into sight to its page being painted.
constexpr std::chrono::milliseconds kAfterFirstPage(100);

// More readings of a layout than a run sees, and few enough for started programs, which take the limit over.
constexpr rlim_t kOpenFiles = 65536;

constexpr int kLargestInHeap = 128 << 10;  // bytes

// Layouts that were read stay open for the run.
void RaiseFileLimit() {
  rlimit limit{};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
  limit.rlim_cur = std::max(limit.rlim_cur, std::min(limit.rlim_max, kOpenFiles));
  setrlimit(RLIMIT_NOFILE, &limit);
}

AppFolder OwnFolder() {
  const QString executableFolder = QCoreApplication::applicationDirPath();
  return FindAppFolder({.executableFolder = executableFolder.toStdString(),
                        .dataHome = qgetenv("XDG_DATA_HOME").toStdString(),
                        .home = qgetenv("HOME").toStdString(),
                        .shippedFolder = (executableFolder + "/../share/morvane").toStdString()});
}

// They take some milliseconds to read, so that is done beside the making of the application. Whoever asks for
// fonts waits for the answer before.
std::future<void> ReadFontRules() {
  return std::async(std::launch::async, [] { FcInit(); });
}

std::string UserName() {
  const passwd* const user = getpwuid(getuid());
  return user == nullptr ? "" : user->pw_name;
}

char DecimalSeparator() {
  return QLocale::system().decimalPoint() == QLatin1String(",") ? ',' : '.';
}

}  // namespace

int main(int argc, char** argv) {
  RaiseFileLimit();
  // Files of photos come and go by megabytes. Mapped each by itself they leave no holes in the heap.
  mallopt(M_MMAP_THRESHOLD, kLargestInHeap);
  const std::future<void> fontRules = ReadFontRules();
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);  // a window's menus are in the window
  QApplication application(argc, argv);
  QApplication::setApplicationName("Morvane");
  QApplication::setDesktopFileName("morvane");
  fontRules.wait();
  InstallFontStandIns();

  FileSystem files("/", MountTable({qgetenv("HOME").toStdString(), UserName()}),
                   QStandardPaths::writableLocation(QStandardPaths::DesktopLocation).toStdString());
  QtWindowSystem windows(files);
  Screen screen;
  FollowDesktop(screen);
  QtPictureLoader pictures(files, OldFormatDecoderPath());
  const QtTextMetrics metrics;
  const QtFontCatalog fonts;
  QtPrinters device;
  Printer printer(device, metrics, fonts);
  AppInfo app;
  const AppFolder folder = OwnFolder();
  app.path = files.FromNative(folder.path);
  QtLauncher launcher(files, app.path);
  QtHttpClient http;
  Platform platform{windows, screen, files, pictures, metrics, fonts, printer, launcher, http, app};

  Program program(platform, DecimalSeparator());
  // A sheet that a print dialog brings is drawn when the print command has ended.
  device.OnSheetChanged = [&] { windows.Post([&] { program.form1.Ridisegna(); }); };
  device.OnComplaint = [&](const std::string& text) { windows.Post([&, text] { windows.MsgBox(text); }); };
  if (!folder.problem.empty()) {
    windows.Post([&] {
      windows.MsgBox(
          "Non è stato possibile preparare la cartella dei layout: le modifiche non potranno essere "
          "salvate.\n" +
          folder.problem);
    });
  }
  program.Start();
  // Asking for the printers takes its time; the page is on the screen first, as A4.
  QTimer::singleShot(kAfterFirstPage, &application, [&] { device.Prepare(); });
  return windows.Ended() ? EXIT_SUCCESS : QApplication::exec();
}
