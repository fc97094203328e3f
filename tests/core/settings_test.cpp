#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "core/settings_file.h"
#include "core/version_check.h"
#include "tests/support/held_text.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

using testing::HasSubstr;

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
  ExpectCases("tests/core/settings.txt", [&](std::string given) {
    std::replace(given.begin(), given.end(), '\n', '\r');
    machine.WriteFile(kPath, given);
    return Read();
  });
  machine.WriteFile(kPath, "FileFolder=D:\\\rSpessoreBordo=2\r");
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
    EXPECT_EQ(machine.Files->ReadBytes(kPath),
              head + "SpessoreBordo=" + text + "\r\nFileFolder=C:\\Citt\xE0\\\r\n");
    EXPECT_EQ(Read(), std::to_string(width) + " C:\\Città\\");
  }
  RefuseFiles();
  state.SpessoreBordo = 1;
  SalvaImpostazioni(state, *machine.Files);
  EXPECT_NE(machine.Files->ReadBytes(kPath).find("= 5 "), std::string::npos);
}

TEST(VersionCheck, DropsTheLastByteComparesTheDigitsAsNumbersAndNamesThree) {
  const AppInfo here;
  for (const std::string body : {"261\n2.6.1", "2601\n2.6.0", "1000\n1.0.0", " 261 \n2.6.1", "3000\n3.0.0"}) {
    const std::size_t end = body.find('\n') + 1;
    const std::string remote = VersioneRemota(body.substr(0, end));
    EXPECT_TRUE(IsNewer(remote, VersioneLocale(here))) << body;
    EXPECT_THAT(NewVersionMessage(here, remote), HasSubstr("versione " + body.substr(end) + " del"));
  }
  for (const char* body : {"261", "260\n", "259\n", "9", "", "<html>404</html>\n"}) {
    EXPECT_FALSE(IsNewer(VersioneRemota(body), VersioneLocale(here))) << body;
  }
}

}  // namespace
}  // namespace Morvane
