#include "core/layout_writer.h"

#include <gtest/gtest.h>

#include <random>

#include "core/default_layout.h"
#include "core/layout_reader.h"
#include "core/measures.h"
#include "fake_files.h"

namespace Morvane {
namespace {

const EditRow kNoneOnShow{"Ogg.00", "1", "2", "3", "4"};

const std::string kComments =
    ";               Morvane 2.5\r\n"
    ";            Il team di Morvane\r\n"
    ";     non manomettere le righe manualmente\r\n"
    ";            pena il malfunzionamento\r\n";

AppState DefaultState() {
  AppState state;
  state.MaxCopertine = 100;
  InstallDefaultLayout(state);
  return state;
}

TEST(LayoutWriter, WritesTheFileByteForByte) {
  AppState state = DefaultState();
  state.Orientamento = 1;
  state.CopForma[1] = 1;
  state.CopLarg[2] = CmFromMm(150.5);
  EXPECT_EQ(ComposeLayout(state, kNoneOnShow), kComments +
                                                   "Pagina=1\r\n"
                                                   "Copertina1=1\r\nDistx1=25\r\nDisty1=25\r\n"
                                                   "Larg1=121\r\nAlte1=121\r\n"
                                                   "Copertina2=\r\nDistx2=25\r\nDisty2=155\r\n"
                                                   "Larg2=150.5\r\nAlte2=118\r\n");
}

TEST(LayoutWriter, TakesTheCoverOnShowFromTheRawTexts) {
  AppState state = DefaultState();
  state.decimalSeparator = ',';
  state.CopLarg[1] = CmFromMm(25.5);
  const EditRow row{"Ogg.02", "abc", "", " 1.5", "12,5"};
  EXPECT_EQ(ComposeLayout(state, row), kComments +
                                           "Pagina=0\r\n"
                                           "Copertina1=\r\nDistx1=25\r\nDisty1=25\r\n"
                                           "Larg1=25,5\r\nAlte1=121\r\n"
                                           "Copertina2=\r\nDistx2= 1.5\r\nDisty2=12,5\r\n"
                                           "Larg2=abc\r\nAlte2=\r\n");
}

TEST(LayoutWriter, NeverRecognisesCoverOneHundredOnShow) {
  AppState state = DefaultState();
  state.NumCopertine = 100;
  for (const char* caption : {"Ogg.00", "Ogg.", "", "7"}) {
    const std::string text = ComposeLayout(state, EditRow{caption, "raw", "raw", "raw", "raw"});
    EXPECT_NE(text.find("Larg100=0\r\n"), std::string::npos);
    EXPECT_EQ(text.find("Larg7=raw") != std::string::npos, std::string(caption) == "7");
  }
}

TEST(LayoutWriter, LosesFractionsOnlyWhereTheSeparatorIsAComma) {
  for (const char separator : {'.', ','}) {
    AppState state = DefaultState();
    state.decimalSeparator = separator;
    state.CopLarg[1] = CmFromMm(121.5);
    TextInput file(ComposeLayout(state, kNoneOnShow));
    ReadLayout(file, state);
    EXPECT_EQ(state.CopLarg[1], CmFromMm(separator == '.' ? 121.5 : 121));
    EXPECT_EQ(state.CopAlte[2], CmFromMm(118));
  }
}

TEST(LayoutWriter, IsReadBackWithoutLoss) {
  std::mt19937 random(1902);
  std::uniform_int_distribution<int> hundredths(-5000, 60000);
  std::uniform_int_distribution<int> count(1, 100);
  for (int round = 0; round < 50; ++round) {
    AppState written = DefaultState();
    written.NumCopertine = static_cast<std::int16_t>(count(random));
    written.Orientamento = static_cast<std::int16_t>(round % 2);
    for (std::size_t n = 1; n <= 100; ++n) {
      written.CopForma[n] = hundredths(random) % 2;
      written.CopLarg[n] = CmFromMm(hundredths(random) / 100.0);
      written.CopDisty[n] = InchesFromMm(hundredths(random) / 100.0);
    }
    AppState read;
    read.MaxCopertine = 100;
    const std::string text = ComposeLayout(written, kNoneOnShow);
    TextInput file(text);
    ReadLayout(file, read);
    ASSERT_EQ(read.NumCopertine, written.NumCopertine);
    for (std::size_t n = 1; n <= static_cast<std::size_t>(read.NumCopertine); ++n) {
      ASSERT_EQ(read.CopForma[n], written.CopForma[n]);
      ASSERT_EQ(read.CopLarg[n], written.CopLarg[n]);
      ASSERT_EQ(read.CopDisty[n], written.CopDisty[n]);
    }
    ASSERT_EQ(ComposeLayout(read, kNoneOnShow), text);
  }
}

TEST(LayoutWriter, ClearsTheFlagEvenWhenTheFileIsRefused) {
  FakeFiles files;
  AppState state = DefaultState();
  state.LayoutModificato = -1;
  WriteLayout(state, kNoneOnShow, files, "C:\\cd.mvne");
  EXPECT_EQ(files.texts["C:\\cd.mvne"], ComposeLayout(state, kNoneOnShow));
  EXPECT_EQ(state.LayoutModificato, 0);

  files.texts["C:\\cd.mvne"] = "vecchio";
  files.refuseWrite = true;
  state.LayoutModificato = -1;
  WriteLayout(state, kNoneOnShow, files, "C:\\cd.mvne");
  EXPECT_EQ(files.texts["C:\\cd.mvne"], "vecchio");
  EXPECT_EQ(state.LayoutModificato, 0);
}

TEST(WorkspacePage, IsLandscapeForAnyOrientationButZero) {
  AppState state;
  SetWorkspacePage(state);
  EXPECT_EQ(state.PaginaLarg, 210);
  EXPECT_EQ(state.PaginaAlte, 297);
  state.Orientamento = -3;
  SetWorkspacePage(state);
  EXPECT_EQ(state.PaginaLarg, 297);
  EXPECT_EQ(state.PaginaAlte, 210);
}

}  // namespace
}  // namespace Morvane
