#include <gtest/gtest.h>

#include "core/settings_file.h"
#include "core/version_check.h"
#include "fake_files.h"

namespace Morvane {
namespace {

constexpr const char* kPath = "C:\\Morvane\\morvane.ini";

AppState Read(FakeFiles& files, const std::string& text) {
  files.texts[kPath] = text;
  AppState state;
  state.AppPath = "C:\\Morvane\\";
  ReadSettings(state, files);
  return state;
}

TEST(Settings, AreReadFromTheFirstColumnInExactCase) {
  FakeFiles files;
  const AppState state = Read(files,
                              "; FileFolder=no\r\n FileFolder=no\r\nfilefolder=no\r\nAltro=1\r\n"
                              "FileFolder=  D:\\a=b \r\nSpessoreBordo=5\rSpessoreBordo= 3 ");
  EXPECT_EQ(state.FileFolder, "D:\\a=b");
  EXPECT_EQ(state.SpessoreBordo, 3);
}

TEST(Settings, RoundTheThicknessAndPassOverOneOutsideSixteenBits) {
  FakeFiles files;
  EXPECT_EQ(Read(files, "SpessoreBordo=2.5").SpessoreBordo, 2);
  EXPECT_EQ(Read(files, "SpessoreBordo=3.5").SpessoreBordo, 4);
  EXPECT_EQ(Read(files, "SpessoreBordo=grosso").SpessoreBordo, 0);
  EXPECT_EQ(Read(files, "SpessoreBordo=3\r\nSpessoreBordo=40000").SpessoreBordo, 3);
}

TEST(Settings, FallBackToTheDefaults) {
  FakeFiles files;
  for (const std::string text : {"", "; niente", "FileFolder=   \r\nSpessoreBordo=\r\n"}) {
    const AppState state = Read(files, text);
    EXPECT_EQ(state.SpessoreBordo, 0);
    EXPECT_EQ(state.FileFolder, "c:\\");
  }
  files.refuseOpen = true;
  EXPECT_EQ(Read(files, "FileFolder=D:\\").FileFolder, "c:\\");
  files.texts.clear();
  AppState missing;
  ReadSettings(missing, files);
  EXPECT_EQ(missing.FileFolder, "c:\\");
}

TEST(Settings, AreWrittenByteForByteAndReadBack) {
  FakeFiles files;
  AppState state;
  state.AppPath = "C:\\Morvane\\";
  state.SpessoreBordo = 3;
  state.FileFolder = "C:\\Città\\";
  SalvaImpostazioni(state, files);
  EXPECT_EQ(files.texts[kPath],
            "; --------------------------------------------------\r\n"
            ";  File di inizializzazione per Morvane\r\n"
            ";   Il team di Morvane\r\n"
            ";   Non manomettere assolutamente queste righe!\r\n"
            "; --------------------------------------------------\r\n"
            "SpessoreBordo= 3 \r\n"
            "FileFolder=C:\\Città\\\r\n");
  const AppState read = Read(files, files.texts[kPath]);
  EXPECT_EQ(read.SpessoreBordo, 3);
  EXPECT_EQ(read.FileFolder, "C:\\Città\\");
}

TEST(Settings, KeepTheOldFileQuietlyWhenItCannotBeReplaced) {
  FakeFiles files;
  AppState state = Read(files, "SpessoreBordo=5");
  state.SpessoreBordo = 1;
  files.refuseWrite = true;
  SalvaImpostazioni(state, files);
  EXPECT_EQ(files.texts[kPath], "SpessoreBordo=5");
}

TEST(VersionCheck, DropsTheLastByteOfTheBody) {
  EXPECT_EQ(VersioneRemota("261\n"), "261");
  EXPECT_EQ(VersioneRemota("261"), "26");
  EXPECT_EQ(VersioneRemota("2"), "");
  EXPECT_EQ(VersioneRemota(""), "");
}

TEST(VersionCheck, ComparesTheJoinedDigitsAsNumbers) {
  const std::string local = VersioneLocale(AppInfo{});
  EXPECT_EQ(local, "260");
  EXPECT_TRUE(IsNewer("261", local));
  EXPECT_TRUE(IsNewer("2601", local));
  for (const char* remote : {"260", "26", "259", "", "<html>404</html>"}) {
    EXPECT_FALSE(IsNewer(remote, local)) << remote;
  }
  EXPECT_TRUE(IsNewer("1000", "999"));
}

TEST(VersionCheck, NamesTheFirstThreeCharacters) {
  const std::string head = "Versione di Morvane installata sul PC : 2.6.0\r\n";
  const std::string tail = " del programma.\r\nSi desidera scaricala ed installarla adesso? ";
  EXPECT_EQ(NewVersionMessage(AppInfo{}, " 261 "),
            head + "E' disponibile su Internet la nuova versione 2.6.1" + tail);
  EXPECT_EQ(NewVersionMessage(AppInfo{}, "2601"),
            head + "E' disponibile su Internet la nuova versione 2.6.0" + tail);
  EXPECT_EQ(NewVersionMessage(AppInfo{}, "3"),
            head + "E' disponibile su Internet la nuova versione 3.." + tail);
}

}  // namespace
}  // namespace Morvane
