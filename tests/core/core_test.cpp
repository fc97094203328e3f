#include <gmock/gmock.h>

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "core/layout_files.h"
#include "core/layout_reader.h"
#include "core/measures.h"
#include "core/number_text.h"
#include "core/settings_file.h"
#include "core/version_check.h"
#include "platform/runtime_error.h"
#include "tests/support/held_text.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

TEST(Numbers, AreReadWrittenAndRoundedAsTheCasesTell) {
  ExpectCases("tests/core/numbers.txt", [](const std::string& given) -> std::string {
    const std::size_t begin = given.find('[') + 1;
    const std::string text = given.substr(begin, given.rfind(']') - begin);
    try {
      if (given.starts_with("NumberToText")) return NumberToText(std::stod(text), ',');
      if (given.starts_with("ToInteger16")) return std::to_string(ToInteger16(std::stod(text)));
    } catch (const RuntimeError& error) {
      return error.what();
    }
    if (given.starts_with("IsNewer"))
      return IsNewer(VersioneRemota(text), VersioneLocale({})) ? "newer" : "not newer";
    std::ostringstream number;
    number << std::setprecision(17) << Val(text);
    return number.str();
  });
}

constexpr const char* kSettings = "C:\\Morvane\\morvane.ini";
constexpr const char* kLayout = "C:\\Morvane\\Due CD.mvne";

class CoreTest : public testing::Test {
 protected:
  CoreTest() {
    state.MaxCopertine = 100;
    state.AppPath = "C:\\Morvane\\";
    state.NomeLayout = "Due CD";
  }

  std::string Settings() {
    ReadSettings(state, *machine.Files);
    return std::to_string(state.SpessoreBordo) + " " + state.FileFolder;
  }
  // The page and, of each cover, shape and left, top, width, height in millimetres.
  std::string Stored() const {
    std::string text = std::to_string(state.Orientamento);
    for (std::size_t n = 1; n <= static_cast<std::size_t>(state.NumCopertine); ++n) {
      text += state.CopForma[n] ? " | " + NumberToText(*state.CopForma[n], '.') : " | -";
      for (const double mm : {MmFromInches(state.CopDistx[n]), MmFromInches(state.CopDisty[n]),
                              MmFromCm(state.CopLarg[n]), MmFromCm(state.CopAlte[n])}) {
        text += " " + NumberToText(mm, '.');
      }
    }
    return text;
  }
  TestMachine machine;
  AppState state;
  const LayoutTables& tables = state;
};

TEST_F(CoreTest, SettingsAreWrittenByteForByteAndReadFromTheFirstColumnElseTheDefaultsStand) {
  state.SpessoreBordo = -3;
  state.FileFolder = "C:\\Città\\";
  SalvaImpostazioni(state, *machine.Files);
  EXPECT_EQ(machine.Files->ReadBytes(kSettings),
            "; --------------------------------------------------\r\n"
            ";  File di inizializzazione per Morvane\r\n"
            ";   Il team di Morvane\r\n"
            ";   Non manomettere assolutamente queste righe!\r\n"
            "; --------------------------------------------------\r\n"
            "SpessoreBordo=-3 \r\nFileFolder=C:\\Citt\xE0\\\r\n");
  EXPECT_EQ(Settings(), "-3 C:\\Città\\");
  ExpectCases("tests/core/settings.txt", [&](std::string given) {
    std::replace(given.begin(), given.end(), '\n', '\r');
    machine.WriteFile(kSettings, given);
    return Settings();
  });
}

TEST_F(CoreTest, LayoutIsReadAsTheCasesTell) {
  ExpectCases("tests/core/layouts.txt", [&](std::string given) {
    const LayoutTables before = state;
    if (given.starts_with("MaxCopertine="))
      state.MaxCopertine = static_cast<std::int16_t>(std::stoi(given.substr(13)));
    std::replace(given.begin(), given.end(), '\n', '\r');
    std::string told;
    machine.WriteFile(kLayout, given);
    try {
      ReadLayout(*machine.Files->OpenForInput(kLayout), state);
    } catch (const RuntimeError& error) {
      told = std::to_string(static_cast<int>(error.Number())) + ": " + error.what() + " ";
    }
    return told + (tables == before ? "as before" : Stored());
  });
}

TEST_F(CoreTest, EachReadingKeepsTheCurrentLayoutOpenAndNoNameLeadsToAnotherFolder) {
  LayoutHandles handles;
  machine.WriteFile(kLayout, "Copertina1=0\r\nLarg1=50\r\n");
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(ReadCurrentLayout(state, *machine.Files, handles));
  EXPECT_EQ(handles.size(), 2U);
  EXPECT_EQ(LayoutPath("C:\\", "..\\CD"), "C:\\../CD.mvne");
}

}  // namespace
}  // namespace Morvane
