#include <QGuiApplication>
#include <cstdio>
#include <exception>

#include "app/console.h"
#include "app/print_program.h"
#include "platform/qt/painting/qt_font_catalog.h"

namespace {

using namespace Morvane;

// Standard error is for the lines that say what went wrong.
void DropToolkitMessages(QtMsgType, const QMessageLogContext&, const QString&) {}

ExitCode Run(int argc, char** argv) {
  const PrintArguments arguments = ParsePrintArguments(std::vector<std::string>(argv + 1, argv + argc));
  if (arguments.help) {
    std::fputs(PrintHelp().c_str(), stdout);
    return ExitCode::Done;
  }
  qInstallMessageHandler(DropToolkitMessages);
  qputenv("QT_QPA_PLATFORM", "offscreen");  // no window is ever shown, so no display is needed
  const QGuiApplication application(argc, argv);
  InstallFontStandIns();
  const FileSystem files("/", MountTable({qgetenv("HOME").toStdString(), {}}), {});
  return Print(arguments, files);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return static_cast<int>(Run(argc, argv));
  } catch (const UsageError& error) {
    Complain(std::string(error.what()) + " (--help spiega l'uso)");
    return static_cast<int>(ExitCode::WrongUsage);
  } catch (const std::exception& error) {
    Complain(error.what());
    return static_cast<int>(ExitCode::NotPrinted);
  }
}
