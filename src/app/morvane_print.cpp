#include <fcntl.h>

#include <QGuiApplication>
#include <cstdio>
#include <exception>

#include "app/print_program.h"
#include "platform/files/file_descriptor.h"
#include "platform/qt/painting/qt_font_catalog.h"

namespace {

using namespace Morvane;

// Standard error, for our lines alone: what the toolkit and the picture libraries write there goes nowhere.
class OwnStandardError {
 public:
  OwnStandardError() {
    const FileDescriptor nowhere(::open("/dev/null", O_WRONLY | O_CLOEXEC));
    ::dup2(nowhere.Get(), STDERR_FILENO);
  }
  OwnStandardError(const OwnStandardError&) = delete;
  OwnStandardError& operator=(const OwnStandardError&) = delete;
  ~OwnStandardError() { ::dup2(standardError_.Get(), STDERR_FILENO); }

  void Complain(const std::string& text) const {
    ::dprintf(standardError_.Get(), "morvane-print: %s\n", text.c_str());
  }

 private:
  const FileDescriptor standardError_{::dup(STDERR_FILENO)};
};

ExitCode Run(int argc, char** argv, const OwnStandardError& errors) {
  const PrintArguments arguments = ParsePrintArguments(std::vector<std::string>(argv + 1, argv + argc));
  if (arguments.help) {
    std::fputs(PrintHelp().c_str(), stdout);
    return ExitCode::Done;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");  // no window is ever shown, so no display is needed
  const QGuiApplication application(argc, argv);
  InstallFontStandIns();
  const FileSystem files("/", MountTable({qgetenv("HOME").toStdString(), {}}), {});
  return Print(arguments, files, [&](const std::string& text) { errors.Complain(text); });
}

}  // namespace

int main(int argc, char** argv) {
  const OwnStandardError errors;
  try {
    return static_cast<int>(Run(argc, argv, errors));
  } catch (const UsageError& error) {
    errors.Complain(std::string(error.what()) + " (--help spiega l'uso)");
    return static_cast<int>(ExitCode::WrongUsage);
  } catch (const std::exception& error) {
    errors.Complain(error.what());
    return static_cast<int>(ExitCode::NotPrinted);
  }
}
