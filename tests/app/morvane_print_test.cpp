#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "tests/support/program_run.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

using testing::HasSubstr;

class MorvanePrintTest : public testing::Test {
 protected:
  ProgramRun Print(const std::string& options) {
    return RunProgram("cd '" + folder_.Path() + "' && " MORVANE_PRINT " " + options, folder_.Path());
  }
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_.Path() + "/" + name, std::ios::binary) << bytes;
  }
  bool Wrote(const std::string& name) const { return std::filesystem::exists(folder_.Path() + "/" + name); }

  // One line of errors, exit code 1, and no sheet.
  void ExpectNotPrinted(const std::string& options, const std::string& reason) {
    const ProgramRun run = Print(options + " --pdf foglio.pdf");
    EXPECT_EQ(run.exitCode, 1) << options;
    EXPECT_THAT(run.errors, testing::MatchesRegex("morvane-print: [^\n]+\n")) << options;
    EXPECT_THAT(run.errors, HasSubstr(reason));
    EXPECT_FALSE(Wrote("foglio.pdf"));
  }

  TemporaryFolder folder_;
};

TEST_F(MorvanePrintTest, PrintsEachCopyAsAFileOfItsOwn) {
  Write("uno.mvne", "Pagina=0\r\nCopertina1=0\r\nDistx1=20\r\nDisty1=20\r\nLarg1=50\r\nAlte1=40\r\n");
  const ProgramRun run = Print("uno.mvne --outline 1 --copies 2 --pdf foglio.pdf");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
  EXPECT_TRUE(Wrote("foglio-1.pdf"));
  EXPECT_TRUE(Wrote("foglio-2.pdf"));
}

TEST_F(MorvanePrintTest, TellsWhichInputIsBadAndPrintsNothing) {
  Write("rotto.mvne", "Larg1\r\n");
  Write("rotta.jpg", "\xFF\xD8\xFF\xE0 nessuna immagine");
  ExpectNotPrinted("manca.mvne", "manca.mvne");
  ExpectNotPrinted("rotto.mvne", "riga 1");
  ExpectNotPrinted("--picture 1=manca.jpg", "manca.jpg");
  ExpectNotPrinted("--picture 3=rotta.jpg", "non ha la copertina 3");
  ExpectNotPrinted("--contents manca", "manca");
  ExpectNotPrinted("--contents . --font Inesistente", "Inesistente");
}

// The damage of the first shows at loading, that of the second when it is painted.
TEST_F(MorvanePrintTest, BadPicturesAreNamedAndAllElseIsPrinted) {
  using namespace std::string_literals;
  Write("tre.mvne",
        "Pagina=0\r\nCopertina1=0\r\nDistx1=20\r\nDisty1=20\r\nLarg1=50\r\nAlte1=40\r\n"
        "Copertina2=0\r\nDistx2=20\r\nDisty2=70\r\nLarg2=50\r\nAlte2=40\r\n"
        "Copertina3=0\r\nDistx3=20\r\nDisty3=120\r\nLarg3=50\r\nAlte3=40\r\n");
  std::filesystem::create_directory(folder_.Path() + "/foto");
  Write("foto/rotta.jpg", "\xFF\xD8\xFF\xE0 nessuna immagine");
  const std::string gif = "GIF89a\2\0\2\0\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0\2\0\2\0\0"s;
  Write("testa.gif", gif);
  Write("buona.gif", gif + "\x02\x03\x44\x8C\x05\0;"s);
  const ProgramRun run = Print(
      "tre.mvne --picture 1=foto/../foto/rotta.jpg --picture 2=testa.gif --picture 3=buona.gif --pdf "
      "foglio.pdf");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.errors,
            "morvane-print: copertina 1: L'immagine 'foto/../foto/rotta.jpg' è danneggiata e non può essere "
            "letta.\n"
            "morvane-print: copertina 2: L'immagine 'testa.gif' è danneggiata e non può essere letta.\n");
  const std::string countImages = "pdfimages -list '" + folder_.Path() + "/foglio.pdf' | grep -c image";
  EXPECT_EQ(RunProgram("test $(" + countImages + ") = 1", folder_.Path()).exitCode, 0);
}

TEST_F(MorvanePrintTest, TellsHowManyLinesFoundNoPlace) {
  std::filesystem::create_directory(folder_.Path() + "/disco");
  for (int file = 0; file < 300; ++file) Write("disco/" + std::to_string(file), "");
  const ProgramRun run = Print("--contents disco --size 25 --columns 2 --pdf foglio.pdf");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.errors, HasSubstr("righe senza posto sul foglio: 2"));
  EXPECT_TRUE(Wrote("foglio.pdf"));
}

TEST_F(MorvanePrintTest, WrongUseIsToldApart) {
  const ProgramRun run = Print("--columns 3 --pdf foglio.pdf");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.errors, HasSubstr("--help"));
}

}  // namespace
}  // namespace Morvane
