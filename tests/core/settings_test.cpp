#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "core/settings_file.h"
#include "core/version_check.h"
#include "tests/support/held_text.h"
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
  machine.Files->BeforeCall = [](const std::string&, const std::string& path) {
    throw RuntimeError(ErrorNumber::PathFileAccess, path);
  };
  EXPECT_EQ(Read(), "0 c:\\");
  state.SpessoreBordo = 1;
  SalvaImpostazioni(state, *machine.Files);
  machine.Files->BeforeCall = {};
  EXPECT_EQ(Read(), "5 C:\\Città\\");
}

TEST(VersionCheck, DropsTheLastByteAndComparesTheDigitsAsNumbers) {
  for (const char* body : {"261\n", "2601\n", "1000\n", " 261 \n"})
    EXPECT_TRUE(IsNewer(VersioneRemota(body), VersioneLocale({}))) << body;
  for (const char* body : {"261", "260\n", "259\n", "9", "", "<html>404</html>\n"})
    EXPECT_FALSE(IsNewer(VersioneRemota(body), VersioneLocale({}))) << body;
}

}  // namespace
}  // namespace Morvane
