#include <gtest/gtest.h>

#include "core/settings_file.h"
#include "core/version_check.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

constexpr const char* kPath = "C:\\Morvane\\morvane.ini";

class SettingsTest : public testing::Test {
 protected:
  SettingsTest() { state.AppPath = "C:\\Morvane\\"; }

  std::string Read() {
    ReadSettings(state, *machine.Files);
    return std::to_string(state.SpessoreBordo) + " " + state.FileFolder;
  }
  void RefuseFiles() {
    machine.Files->BeforeCall = [](const std::string& call, const std::string& path) {
      if (call == "OpenForInput" || call == "WriteText")
        throw RuntimeError(ErrorNumber::PathFileAccess, path);
    };
  }

  TestMachine machine;
  AppState state;
};

TEST_F(SettingsTest, AreReadFromTheFirstColumnInExactCaseElseTheDefaultsStand) {
  EXPECT_EQ(Read(), "0 c:\\") << "no file";
  const std::pair<const char*, const char*> files[] = {
      {"; FileFolder=no\r\n FileFolder=no\r\nfilefolder=no\r\nAltro=1\r\n"
       "FileFolder=  D:\\a=b \r\nSpessoreBordo=5\rSpessoreBordo= 3 ",
       "3 D:\\a=b"},
      {"SpessoreBordo=2.5", "2 c:\\"},
      {"SpessoreBordo=3.5", "4 c:\\"},
      {"SpessoreBordo=grosso", "0 c:\\"},
      {"SpessoreBordo=3\r\nSpessoreBordo=40000", "3 c:\\"},
      {"", "0 c:\\"},
      {"; niente", "0 c:\\"},
      {"FileFolder=D:\\\rSpessoreBordo=2\rFileFolder=   \r\nSpessoreBordo=\r\n", "0 c:\\"}};
  for (const auto& [text, read] : files) {
    machine.WriteFile(kPath, text);
    EXPECT_EQ(Read(), read) << text;
  }
  machine.WriteFile(kPath, "FileFolder=D:\\");
  RefuseFiles();
  EXPECT_EQ(Read(), "0 c:\\");
}

TEST_F(SettingsTest, AreWrittenByteForByteReadBackAndKeptQuietlyWhenTheyCannotBeReplaced) {
  const std::string head =
      "; --------------------------------------------------\r\n"
      ";  File di inizializzazione per Morvane\r\n"
      ";   Il team di Morvane\r\n"
      ";   Non manomettere assolutamente queste righe!\r\n"
      "; --------------------------------------------------\r\n";
  for (const auto& [width, text] : {std::pair(-3, "-3 "), {0, " 0 "}, {5, " 5 "}}) {
    state.SpessoreBordo = static_cast<std::int16_t>(width);
    state.FileFolder = "C:\\Città\\";
    SalvaImpostazioni(state, *machine.Files);
    EXPECT_EQ(machine.ReadFile(kPath), head + "SpessoreBordo=" + text + "\r\nFileFolder=C:\\Citt\xE0\\\r\n");
    EXPECT_EQ(Read(), std::to_string(width) + " C:\\Città\\");
  }
  RefuseFiles();
  state.SpessoreBordo = 1;
  SalvaImpostazioni(state, *machine.Files);
  EXPECT_NE(machine.ReadFile(kPath).find("= 5 "), std::string::npos);
}

TEST(VersionCheck, DropsTheLastByteOfTheBodyAndComparesTheJoinedDigitsAsNumbers) {
  const std::string local = VersioneLocale(AppInfo{});
  EXPECT_EQ(local, "260");
  for (const char* body : {"261\n", "2601\n", "1000\n"})
    EXPECT_TRUE(IsNewer(VersioneRemota(body), local)) << body;
  for (const char* body : {"261", "260\n", "259\n", "9", "", "<html>404</html>\n"}) {
    EXPECT_FALSE(IsNewer(VersioneRemota(body), local)) << body;
  }
}

TEST(VersionCheck, NamesTheFirstThreeCharacters) {
  for (const auto& [remote, named] : {std::pair(" 261 ", "2.6.1"), {"2601", "2.6.0"}, {"3", "3.."}}) {
    EXPECT_EQ(NewVersionMessage(AppInfo{}, remote),
              std::string("Versione di Morvane installata sul PC : 2.6.0\r\n"
                          "E' disponibile su Internet la nuova versione ") +
                  named + " del programma.\r\nSi desidera scaricala ed installarla adesso? ");
  }
}

}  // namespace
}  // namespace Morvane
