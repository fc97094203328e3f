#include "core/layout_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/layout_files.h"
#include "fake_files.h"

namespace Morvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

AppState StartState() {
  AppState state;
  state.MaxCopertine = 100;
  return state;
}

void Read(const std::string& text, AppState& state, LayoutObserver* observer = nullptr) {
  TextInput file(text);
  ReadLayout(file, state, observer);
}

const LayoutTables& Tables(const AppState& state) {
  return state;
}

TEST(LayoutReader, StoresCentimetresAndInchesWithEveryLineEnd) {
  const std::vector<std::string> lines = {";  nota", "Pagina=1",     "Copertina1=0", "Distx1=25",
                                          "Disty1=", "Larg1= 121.5", "Alte1=12 1mm"};
  for (const std::string end : {"\r\n", "\r"}) {
    AppState state = StartState();
    state.CopDisty[1] = 3;
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : end) + line;
    Read(text, state);
    EXPECT_EQ(state.Orientamento, 1);
    EXPECT_EQ(state.NumCopertine, 1);
    EXPECT_EQ(state.CopForma[1], 0.0);
    EXPECT_EQ(state.CopDistx[1], (25.0 / 10) / 2.54);
    EXPECT_EQ(state.CopDisty[1], 0);
    EXPECT_EQ(state.CopLarg[1], 121.5 / 10);
    EXPECT_EQ(state.CopAlte[1], 12.1);
  }
}

TEST(LayoutReader, KeepsWhatTheFileLacks) {
  AppState state = StartState();
  Read("Copertina1=1\r\nCopertina2=1\r\nLarg2=150\r\n", state);
  Read("; altro\r\nPagina=1\r\n", state);
  EXPECT_EQ(state.NumCopertine, 2);
  EXPECT_EQ(state.CopForma[2], 1.0);
  Read("Copertina1=0", state);
  EXPECT_EQ(state.NumCopertine, 1);
  EXPECT_EQ(state.Orientamento, 1);
  EXPECT_EQ(state.CopLarg[2], 15);
  Read("", state);
  EXPECT_EQ(state.NumCopertine, 1);
}

TEST(LayoutReader, CountsUpToTheLastCopertinaLine) {
  AppState state = StartState();
  Read("Copertina1=0\rCopertina3=\rCopertina2=2.5\rLarg7=10\r", state);
  EXPECT_EQ(state.NumCopertine, 2);
  EXPECT_EQ(state.CopForma[3], 0.0);
  EXPECT_EQ(state.CopForma[2], 2.5);
  EXPECT_EQ(state.CopLarg[7], 1);
}

TEST(LayoutReader, DropsKeysThatFitNoCover) {
  AppState state = StartState();
  const LayoutTables before = state;
  for (const char* line : {"Copertina01=1",
                           "Copertina0=1",
                           "Copertina101=1",
                           "Copertina=1",
                           "Copertina1 =1",
                           "Copertina-1=1",
                           "Copertina18446744073709551617=1",
                           "copertina1=1",
                           " Copertina1=1",
                           "Larg2 =150",
                           "larg2=150",
                           "Larghezza=5",
                           "Alte+1=5",
                           "Distx1.0=5",
                           "Disty=5",
                           "Distz1=5",
                           " Pagina=1",
                           "Pagina =1",
                           "Pagina",
                           ""}) {
    Read(line, state);
    EXPECT_TRUE(Tables(state) == before) << line;
  }
}

TEST(LayoutReader, ReadsTheNumberBehindTheFirstEqualSign) {
  AppState state = StartState();
  Read("Larg2= 150\rAlte2==5\rPagina=  1=7\r", state);
  EXPECT_EQ(state.CopLarg[2], 15);
  EXPECT_EQ(state.CopAlte[2], 0);
  EXPECT_EQ(state.Orientamento, 1);
  Read("Pagina=2.5", state);
  EXPECT_EQ(state.Orientamento, 2);
}

TEST(LayoutReader, TakesNoMoreThanTheLimitOfCovers) {
  std::string text;
  for (int n = 1; n <= 140; ++n) {
    text +=
        "Copertina" + std::to_string(n) + "=1\r\nAlte" + std::to_string(n) + "=" + std::to_string(n) + "\r\n";
  }
  AppState state = StartState();
  Read(text, state);
  EXPECT_EQ(state.NumCopertine, 100);
  EXPECT_EQ(state.CopAlte[100], 10);
  state.MaxCopertine = 30;
  Read(text, state);
  EXPECT_EQ(state.NumCopertine, 30);
  state.MaxCopertine = 32767;
  Read(text, state);
  EXPECT_EQ(state.NumCopertine, 100);
}

TEST(LayoutReader, FailsOnAKeyWithoutEqualSignAndLeavesTheTables) {
  for (const std::string bad : {"Copertina", "Larghezza 5", "Alte1", "Distx 1", "Disty1:5"}) {
    AppState state = StartState();
    state.NomeLayout = "Due CD";
    Read("Pagina=1\rCopertina1=1\rLarg1=10\r", state);
    const LayoutTables before = state;
    try {
      Read("Pagina=0\rCopertina2=0\rLarg1=99\rAlte5=1\r" + bad + "\rDistx1=4", state);
      ADD_FAILURE() << bad;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::InvalidProcedureCall);
      EXPECT_THAT(error.what(), HasSubstr("\"Due CD\" non è valido alla riga 5"));
    }
    EXPECT_TRUE(Tables(state) == before) << bad;
  }
}

TEST(LayoutReader, FailsOnAPaginaOutsideSixteenBits) {
  AppState state = StartState();
  try {
    Read("Copertina1=1\rPagina=32768\r", state);
    ADD_FAILURE();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    EXPECT_THAT(error.what(), HasSubstr("riga 2"));
  }
  EXPECT_EQ(state.NumCopertine, 0);
}

class Recorder : public LayoutObserver {
 public:
  explicit Recorder(const AppState& state) : state_(state) {}

  void PaginaRead() override { events.push_back("Pagina " + std::to_string(state_.Orientamento)); }
  void CopertinaRead(int n) override {
    events.push_back("Copertina" + std::to_string(n) + " of " + std::to_string(state_.NumCopertine));
  }

  std::vector<std::string> events;

 private:
  const AppState& state_;
};

TEST(LayoutReader, TellsTheObserverOfThePageAndOfEachCoverOnceItIsStored) {
  AppState state = StartState();
  Recorder recorder(state);
  Read("Disty1=25\rPagina=1\rCopertina01=1\rCopertina4=1\rLarg1=121\r", state, &recorder);
  EXPECT_THAT(recorder.events, ElementsAre("Pagina 1", "Copertina4 of 4"));
}

TEST(CurrentLayout, IsReadFromTheProgramsFolderAndStaysOpen) {
  FakeFiles files;
  files.texts["C:\\Morvane\\cd.mvne"] = "Copertina1=0\r\n";
  AppState state = StartState();
  state.AppPath = WithBackslash("C:\\Morvane");
  state.NomeLayout = "cd";
  LayoutHandles handles;
  EXPECT_TRUE(ReadCurrentLayout(state, files, handles));
  EXPECT_TRUE(ReadCurrentLayout(state, files, handles));
  EXPECT_EQ(state.NumCopertine, 1);
  EXPECT_EQ(handles.Count(), 2u);
}

TEST(CurrentLayout, IsSkippedWhenMissingOrNotToBeOpened) {
  FakeFiles files;
  AppState state = StartState();
  state.AppPath = WithBackslash("C:\\");
  LayoutHandles handles;
  EXPECT_FALSE(ReadCurrentLayout(state, files, handles));
  files.texts["C:\\.mvne"] = "Copertina1=0\r\n";
  files.refuseOpen = true;
  EXPECT_FALSE(ReadCurrentLayout(state, files, handles));
  EXPECT_EQ(state.NumCopertine, 0);
}

}  // namespace
}  // namespace Morvane
