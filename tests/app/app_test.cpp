#include <gtest/gtest.h>

#include <string>

#include "tests/support/private_cups.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

// Started as installed, by a user without a home, with a printer that takes Letter and stands still.
TEST(App, TellsDesktopAndToolkitWhoItIsWhatIsWrongAndShowsThePrintersSheetWithoutATouch) {
  PrivateCups spooler;
  spooler.AddQueue("letter");
  for (const char* command : {"lpadmin -d letter", "cupsdisable letter"}) spooler.Run(command);
  const TemporaryFolder folder;
  const char* const start =
      "mkdir -p bin share/morvane && cp '" MORVANE_BIN "/morvane' bin && cp '" MORVANE_SOURCE_DIR
      "/data/program_folder/morvane.ini' share/morvane && "
      "HOME= XDG_DATA_HOME= QT_PLUGIN_PATH='" MORVANE_BIN
      "' QT_QPA_GENERIC_PLUGINS=witness QT_QPA_PLATFORM=offscreen timeout 30 bin/morvane >told";
  const ProgramRun run = RunProgram("cd '" + folder.Path() + "' && " + start, folder);
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(
      folder.Read("told"),
      "Non è stato possibile preparare la cartella dei layout: le modifiche non potranno essere salvate.\n"
      "La cartella personale dell'utente non è nota.\n"
      "cover's right edge: 203 of 292\n"
      "cover's right edge: 197 of 292\n"
      "name: Morvane\n"
      "desktop file: morvane\n"
      "icon: 1\n"
      "cancel: Annulla\n"
      "Tahoma: liberation sans\n"
      "La stampante 'letter' è ferma: i lavori aspettano nella coda.\n");
}

}  // namespace
}  // namespace Morvane
