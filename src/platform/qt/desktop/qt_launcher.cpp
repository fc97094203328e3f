#include "platform/qt/desktop/qt_launcher.h"

#include <QProcess>
#include <algorithm>

#include "platform/runtime_error.h"

namespace Morvane {
namespace {

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool HasControlCharacter(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; });
}

// A scheme and a colon; one letter and a colon are a drive.
bool IsAddress(const std::string& target) {
  const size_t colon = target.find(':');
  return colon != std::string::npos && colon >= 2 &&
         std::all_of(target.begin(), target.begin() + static_cast<std::ptrdiff_t>(colon), IsLetter);
}

bool IsFullPath(const std::string& path) {
  return path.starts_with('\\') || path.find(':') == 1;
}

bool Start(const std::string& program, const QStringList& arguments) {
  QProcess process;
  process.setProgram(QString::fromStdString(program));
  process.setArguments(arguments);
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  return process.startDetached();
}

}  // namespace

void QtLauncher::ShellExecute(const std::string& target) {
  if (target.empty() || HasControlCharacter(target)) return;
  std::string argument = target;
  if (!IsAddress(target)) {
    const std::string path = IsFullPath(target) ? target : programFolder_ + '\\' + target;
    if (!files_.FileExists(path) && !files_.FolderExists(path)) return;
    argument = files_.ToNative(path);
  }
  Start("xdg-open", {QString::fromStdString(argument)});
}

void QtLauncher::Shell(const std::string& program) {
  const std::string native = files_.ToNative(program);
  if (native.empty() || !Start(native, {})) {
    throw RuntimeError(ErrorNumber::FileNotFound, "Impossibile avviare il programma '" + program + "'.");
  }
}

}  // namespace Morvane
