#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "core/default_layout.h"
#include "core/layout_files.h"
#include "core/layout_reader.h"
#include "core/layout_writer.h"
#include "core/measures.h"
#include "core/number_text.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

using testing::HasSubstr;

const EditRow kNoneOnShow{"Ogg.00", "1", "2", "3", "4"};

class LayoutTest : public testing::Test {
 protected:
  LayoutTest() {
    state.MaxCopertine = 100;
    state.AppPath = "C:\\Morvane\\";
    state.NomeLayout = "Due CD";
  }

  void Read(const std::string& text, LayoutObserver* observer = nullptr) {
    machine.WriteFile(kPath, text);
    ReadLayout(*machine.Files->OpenForInput(kPath), state, observer);
  }
  void RefuseCalls() {
    machine.Files->BeforeCall = [](const std::string& call, const std::string& path) {
      if (call != "FileExists") throw RuntimeError(ErrorNumber::PathFileAccess, path);
    };
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

  static constexpr const char* kPath = "C:\\Morvane\\Due CD.mvne";
  TestMachine machine;
  AppState state;
  const LayoutTables& tables = state;
};

TEST_F(LayoutTest, EachFileIsReadOverWhatTheOneBeforeLeft) {
  const std::pair<const char*, const char*> files[] = {
      {"", "0"},
      {";  nota\r\nPagina=1\r\nCopertina1=0\r\nDistx1=25\r\nDisty1=3\r\nLarg1= 121.5\r\nAlte1=12 1mm",
       "1 | 0 25 3 121.5 121"},
      {"; altro\rPagina=  0=7\rAlte1==5\rDisty1=\rDistx1=-2.5=1", "0 | 0 -2.5 0 121.5 0"},
      {"Larg3=70\rCopertina3=\rCopertina1=1\r", "0 | 1 -2.5 0 121.5 0"},
      {"Copertina3=2.5\r\nPagina=2.5\r\n", "2 | 1 -2.5 0 121.5 0 | - 0 0 0 0 | 2.5 0 0 70 0"},
      {"Pagina=-32768\rCopertina2=x", "-32768 | 1 -2.5 0 121.5 0 | 0 0 0 0 0"}};
  for (const auto& [text, stored] : files) {
    Read(text);
    EXPECT_EQ(Stored(), stored) << text;
  }
  SetWorkspacePage(state);
  EXPECT_GT(state.PaginaLarg, state.PaginaAlte) << "landscape for any orientation but zero";
  EXPECT_EQ(state.CopLarg[1], 121.5 / 10) << "centimetres";
  EXPECT_EQ(state.CopDistx[1], (-2.5 / 10) / 2.54) << "inches";
}

TEST_F(LayoutTest, KeysThatFitNoCoverAreDropped) {
  const LayoutTables before = state;
  std::istringstream lines(
      "Copertina01=1|Copertina0=1|Copertina101=1|Copertina=1|Copertina1 =1|Copertina-1=1|Copertina1:=1|"
      "Copertina18446744073709551617=1|copertina1=1| Copertina1=1|Larg2 =150|larg2=150|Larghezza=5|Alte+1=5|"
      "Distx1.0=5|Disty=5|Distz1=5| Pagina=1|Pagina =1|Pagina");
  for (std::string line; std::getline(lines, line, '|');) {
    Read(line);
    EXPECT_TRUE(tables == before) << line;
  }
}

TEST_F(LayoutTest, NoMoreCoversAreTakenThanTheLimit) {
  std::string text;
  for (int i = 1; i <= 140; ++i) {
    const std::string n = std::to_string(i);
    text += "Copertina" + n + "=1\r\nAlte" + n + "=" + n + "\r\n";
  }
  for (const auto& [limit, covers] : {std::pair(100, 100), {30, 30}, {9, 9}, {32767, 100}}) {
    state.MaxCopertine = static_cast<std::int16_t>(limit);
    Read(text);
    EXPECT_EQ(state.NumCopertine, covers);
  }
  EXPECT_EQ(state.CopAlte[100], 10);
}

TEST_F(LayoutTest, AFileThatFailsIsNamedWithItsLineAndLeavesTheTables) {
  Read("Pagina=1\rCopertina1=1\rLarg1=10\r");
  const LayoutTables before = state;
  const std::string head = "Pagina=0\rCopertina2=0\rLarg1=99\rAlte5=1\r";
  for (const auto& [line, number] : {std::pair("Copertina", ErrorNumber::InvalidProcedureCall),
                                     {"Larghezza 5", ErrorNumber::InvalidProcedureCall},
                                     {"Distx1:5", ErrorNumber::InvalidProcedureCall},
                                     {"Pagina=32768", ErrorNumber::Overflow}}) {
    try {
      Read(head + line + "\rDistx1=4");
      ADD_FAILURE() << line;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), number) << line;
      EXPECT_THAT(error.what(), HasSubstr("\"Due CD\" non è valido alla riga 5"));
    }
    EXPECT_TRUE(tables == before) << line;
  }
}

struct Recorder : LayoutObserver {
  explicit Recorder(const AppState& read) : state(read) {}
  void PaginaRead() override { events += "Pagina " + std::to_string(state.Orientamento); }
  void CopertinaRead(int n) override {
    events += ", " + std::to_string(n) + " of " + std::to_string(state.NumCopertine);
  }

  const AppState& state;
  std::string events;
};

TEST_F(LayoutTest, TheObserverIsToldOfThePageAndOfEachCoverOnceItIsStored) {
  Recorder recorder(state);
  Read("Disty1=25\rPagina=1\rCopertina01=1\rCopertina4=1\rLarg1=121\r", &recorder);
  EXPECT_EQ(recorder.events, "Pagina 1, 4 of 4");
}

TEST_F(LayoutTest, TheCurrentLayoutStaysOpenAndIsSkippedWhenMissingOrNotToBeOpened) {
  LayoutHandles handles;
  EXPECT_FALSE(ReadCurrentLayout(state, *machine.Files, handles));
  machine.WriteFile(kPath, "Copertina1=0\r\n");
  EXPECT_TRUE(ReadCurrentLayout(state, *machine.Files, handles));
  EXPECT_TRUE(ReadCurrentLayout(state, *machine.Files, handles));
  EXPECT_EQ(state.NumCopertine, 1);
  RefuseCalls();
  EXPECT_FALSE(ReadCurrentLayout(state, *machine.Files, handles));
  EXPECT_EQ(handles.Count(), 2U);
  EXPECT_EQ(WithBackslash("C:") + WithBackslash("C:\\"), "C:\\C:\\");
  EXPECT_EQ(LayoutPath("C:\\", "..\\CD"), "C:\\../CD.mvne") << "no name leads to another folder";
}

TEST_F(LayoutTest, IsWrittenByteForByteAndTheCoverOnShowFromItsRawTexts) {
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
  EXPECT_EQ(ComposeLayout(state, kNoneOnShow),
            head + ".5\r\nAlte1=121\r\nCopertina2=\r\nDistx2=25\r\nDisty2=155\r\nLarg2=150\r\nAlte2=118\r\n");
  state.decimalSeparator = ',';
  EXPECT_EQ(ComposeLayout(state, {"Ogg.02", "abc", "", " 1.5", "12,5"}),
            head + ",5\r\nAlte1=121\r\nCopertina2=\r\nDistx2= 1.5\r\nDisty2=12,5\r\nLarg2=abc\r\nAlte2=\r\n");
  Read(ComposeLayout(state, kNoneOnShow));
  EXPECT_EQ(state.CopLarg[1], CmFromMm(25)) << "a comma ends the number";
}

TEST_F(LayoutTest, CoverOneHundredIsNeverTheOneOnShow) {
  state.NumCopertine = 100;
  for (const std::string caption : {"Ogg.00", "Ogg.17", "Ogg.", "", "7", "107"}) {
    const std::string text = ComposeLayout(state, {caption, "raw", "raw", "raw", "raw"});
    EXPECT_THAT(text, HasSubstr("Larg100=0\r\n"));
    EXPECT_EQ(text.find("Larg7=raw") != std::string::npos, caption == "7" || caption == "107");
  }
}

TEST_F(LayoutTest, IsReadBackWithoutLoss) {
  std::mt19937 random(1902);
  std::uniform_int_distribution<int> hundredths(-5000, 60000);
  for (const int covers : {1, 9, 10, 100}) {
    state.NumCopertine = static_cast<std::int16_t>(covers);
    state.Orientamento = static_cast<std::int16_t>(covers % 2);
    for (std::size_t n = 1; n <= static_cast<std::size_t>(covers); ++n) {
      state.CopForma[n] = hundredths(random) % 2;
      state.CopLarg[n] = CmFromMm(hundredths(random) / 100.0);
      state.CopDisty[n] = InchesFromMm(hundredths(random) / 100.0);
    }
    const LayoutTables written = state;
    const std::string text = ComposeLayout(state, kNoneOnShow);
    static_cast<LayoutTables&>(state) = {};
    Read(text);
    EXPECT_TRUE(tables == written);
    EXPECT_EQ(ComposeLayout(state, kNoneOnShow), text);
  }
}

TEST_F(LayoutTest, SavingClearsTheFlagEvenWhenTheFileIsRefused) {
  machine.WriteFile(kPath, "vecchio");
  for (const bool refused : {true, false}) {
    if (refused) RefuseCalls();
    state.LayoutModificato = -1;
    WriteLayout(state, kNoneOnShow, *machine.Files, kPath);
    EXPECT_EQ(state.LayoutModificato, 0);
    machine.Files->BeforeCall = nullptr;
    EXPECT_EQ(machine.ReadFile(kPath), refused ? "vecchio" : ComposeLayout(state, kNoneOnShow));
  }
}

}  // namespace
}  // namespace Morvane
