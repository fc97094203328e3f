#include <gmock/gmock.h>

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "core/default_layout.h"
#include "core/layout_files.h"
#include "core/layout_reader.h"
#include "core/layout_writer.h"
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
    std::ostringstream number;
    number << std::setprecision(17) << Val(text);
    return number.str();
  });
  EXPECT_EQ(Val("\r7"), 0) << "a carriage return is no blank";
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
  void Read(const std::string& text, LayoutObserver* observer = nullptr) {
    machine.WriteFile(kLayout, text);
    ReadLayout(*machine.Files->OpenForInput(kLayout), state, observer);
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
  void Refuse(ErrorNumber number) {
    machine.Files->BeforeCall = [number](const std::string& call, const std::string& path) {
      if (call != "FileExists") throw RuntimeError(number, path);
    };
  }

  TestMachine machine;
  AppState state;
  const LayoutTables& tables = state;
};

TEST_F(CoreTest, SettingsAreReadFromTheFirstColumnInExactCaseElseTheDefaultsStand) {
  EXPECT_EQ(Settings(), "0 c:\\") << "no file";
  ExpectCases("tests/core/settings.txt", [&](std::string given) {
    std::replace(given.begin(), given.end(), '\n', '\r');
    machine.WriteFile(kSettings, given);
    return Settings();
  });
}

TEST_F(CoreTest, SettingsAreWrittenByteForByteReadBackAndKeptQuietlyWhenTheyCannotBeReplaced) {
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
    EXPECT_EQ(machine.Files->ReadBytes(kSettings),
              head + "SpessoreBordo=" + text + "\r\nFileFolder=C:\\Citt\xE0\\\r\n");
    EXPECT_EQ(Settings(), std::to_string(width) + " C:\\Città\\");
  }
  Refuse(ErrorNumber::PathFileAccess);
  EXPECT_EQ(Settings(), "0 c:\\");
  state.SpessoreBordo = 1;
  SalvaImpostazioni(state, *machine.Files);
  machine.Files->BeforeCall = {};
  EXPECT_EQ(Settings(), "5 C:\\Città\\");
}

TEST(VersionCheck, DropsTheLastByteAndComparesTheDigitsAsNumbers) {
  for (const char* body : {"261\n", "2601\n", "1000\n", " 261 \n"})
    EXPECT_TRUE(IsNewer(VersioneRemota(body), VersioneLocale({}))) << body;
  for (const char* body : {"261", "260\n", "259\n", "9", "", "<html>404</html>\n"})
    EXPECT_FALSE(IsNewer(VersioneRemota(body), VersioneLocale({}))) << body;
}

struct Recorder : LayoutObserver {
  explicit Recorder(const AppState& read) : state(read) {}
  void PaginaRead() override { events += "page " + std::to_string(state.Orientamento) + ", "; }
  void CopertinaRead(int n) override {
    events += std::to_string(n) + " of " + std::to_string(state.NumCopertine) + ", ";
  }

  const AppState& state;
  std::string events;
};

TEST_F(CoreTest, LayoutIsReadAsTheCasesTell) {
  ExpectCases("tests/core/layouts.txt", [&](std::string given) {
    const LayoutTables before = state;
    if (given.starts_with("MaxCopertine="))
      state.MaxCopertine = static_cast<std::int16_t>(std::stoi(given.substr(13)));
    std::replace(given.begin(), given.end(), '\n', '\r');
    Recorder told(state);
    try {
      Read(given, &told);
    } catch (const RuntimeError& error) {
      told.events += std::to_string(static_cast<int>(error.Number())) + ": " + error.what() + " ";
    }
    return told.events + (tables == before ? "as before" : Stored());
  });
  state.Orientamento = 2;
  SetWorkspacePage(state);
  EXPECT_GT(state.PaginaLarg, state.PaginaAlte) << "landscape for any orientation but zero";
  EXPECT_EQ(state.CopLarg[1], 121.5 / 10) << "centimetres";
  EXPECT_EQ(state.CopDistx[1], (-2.5 / 10) / 2.54) << "inches";
}

TEST_F(CoreTest, TheCurrentLayoutStaysOpenAndCoversStayAsReadLastWhenItCannotBeOpened) {
  LayoutHandles handles;
  EXPECT_FALSE(ReadCurrentLayout(state, *machine.Files, handles));
  machine.WriteFile(kLayout, "Copertina1=0\r\nLarg1=50\r\n");
  EXPECT_TRUE(ReadCurrentLayout(state, *machine.Files, handles));
  EXPECT_TRUE(ReadCurrentLayout(state, *machine.Files, handles));
  EXPECT_EQ(handles.size(), 2U);
  state.CopLarg[1] = 99;
  Refuse(ErrorNumber::TooManyFiles);
  EXPECT_THROW(ReadCurrentLayout(state, *machine.Files, handles), RuntimeError);
  EXPECT_EQ(state.CopLarg[1], CmFromMm(50));
  EXPECT_EQ(WithBackslash("C:") + WithBackslash("C:\\"), "C:\\C:\\");
  EXPECT_EQ(LayoutPath("C:\\", "..\\CD"), "C:\\../CD.mvne") << "no name leads to another folder";
}

TEST_F(CoreTest, LayoutIsWrittenByteForByteAndTheCoverOnShowFromItsRawTexts) {
  InstallDefaultLayout(state);
  state.Orientamento = 1;
  state.CopForma[1] = 1;
  state.CopLarg[1] = CmFromMm(25.5);
  const std::string head =
      ";               Morvane 2.5\r\n"
      ";            Il team di Morvane\r\n"
      ";     non manomettere le righe manualmente\r\n"
      ";            pena il malfunzionamento\r\n"
      "Pagina=1\r\nCopertina1=1\r\nDistx1=25\r\nDisty1=25\r\nLarg1=25";
  EXPECT_EQ(ComposeLayout(state, {}),
            head + ".5\r\nAlte1=121\r\nCopertina2=\r\nDistx2=25\r\nDisty2=155\r\nLarg2=150\r\nAlte2=118\r\n");
  state.decimalSeparator = ',';
  EXPECT_EQ(ComposeLayout(state, {"Ogg.102", "abc", "", " 1.5", "12,5"}),
            head + ",5\r\nAlte1=121\r\nCopertina2=\r\nDistx2= 1.5\r\nDisty2=12,5\r\nLarg2=abc\r\nAlte2=\r\n");
  Read(ComposeLayout(state, {}));
  EXPECT_EQ(state.CopLarg[1], CmFromMm(25)) << "a comma ends the number";
}

}  // namespace
}  // namespace Morvane
