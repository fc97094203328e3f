#include <gmock/gmock.h>

#include <QApplication>
#include <memory>

#include "platform/qt/painting/font_stand_ins.h"
#include "platform/qt/views/program_style.h"
#include "tests/support/test_machine.h"

// Neither the user's fonts and settings nor the desktop's reach the pictures; the scale alone is the
// caller's.
int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  const Morvane::TemporaryFolder home;
  for (const char* folder : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
    qputenv(folder, home.Path().c_str());
  }
  for (const char* taste :
       {"QT_STYLE_OVERRIDE", "QT_FONT_DPI", "QT_SCREEN_SCALE_FACTORS", "QT_QPA_PLATFORMTHEME"}) {
    qunsetenv(taste);
  }
  qputenv("FONTCONFIG_FILE", MORVANE_SOURCE_DIR "/tests/pictures/fonts.conf");
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" MORVANE_SOURCE_DIR "/tests/app/program/screen.json");
  QApplication application(argc, argv);
  QApplication::setStyle(
      std::make_unique<Morvane::ProgramStyle>().release());  // the application owns its style
  QApplication::setCursorFlashTime(0);
  Morvane::InstallFontStandIns();
  return RUN_ALL_TESTS();
}
