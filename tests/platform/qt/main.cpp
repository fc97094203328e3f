#include <gmock/gmock.h>

#include <QApplication>
#include <QStandardPaths>
#include <iostream>

#include "platform/qt/painting/qt_font_catalog.h"
#include "tests/support/private_cups.h"
#include "tests/support/test_machine.h"

// The tests see neither the machine's printers nor the user's folders, language, fonts and taste, and no
// screen but one in memory, a wide one unless MORVANE_SCREEN names another.
int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
#ifdef MORVANE_NEEDS
  for (const QString& program : QString(MORVANE_NEEDS).split(' ')) {
    const QStringList folders = qEnvironmentVariable("PATH").split(':') << "/usr/sbin";
    if (!QStandardPaths::findExecutable(program, folders).isEmpty()) continue;
    std::cout << "Skipped: no " << program.toStdString() << " here\n";
    return 77;
  }
#endif
  const Morvane::TemporaryFolder home;
  for (const char* folder : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
    qputenv(folder, home.Path().c_str());
  qputenv("LC_ALL", "C.UTF-8");
  qputenv("FONTCONFIG_FILE", MORVANE_FONTS);
  for (const char* taste : {"LANGUAGE", "XDG_CACHE_HOME", "QT_STYLE_OVERRIDE", "QT_FONT_DPI",
                            "QT_SCREEN_SCALE_FACTORS", "QT_QPA_PLATFORMTHEME"})
    qunsetenv(taste);
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" MORVANE_SOURCE_DIR "/tests/platform/qt/" +
                                 qEnvironmentVariable("MORVANE_SCREEN", "screen").toUtf8() + ".json");
  Morvane::PrivateCups::ChooseSocket(home.Path());
  QApplication application(argc, argv);
  Morvane::InstallFontStandIns();
  return RUN_ALL_TESTS();
}
