#include <gmock/gmock.h>

#include <QRegularExpression>
#include <sstream>

#include "platform/old_formats/limits.h"
#include "platform/qt/pictures/old_formats.h"
#include "platform/qt/pictures/qt_picture.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/pictures/svg_references.h"
#include "platform/resume_next.h"
#include "tests/support/held_text.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

constexpr QSize kCells(30, 15);
constexpr std::chrono::seconds kMostTime(3);

// Words of hexadecimal digits, up to a semicolon on each line, or "keep N", "from N" and "rest" of `whole`.
std::string BytesOf(const std::string& given, const std::string& whole) {
  std::string bytes;
  std::istringstream lines(given);
  for (std::string line, word; std::getline(lines, line);) {
    std::istringstream words(line.substr(0, line.find(';')));
    while (words >> word) {
      std::size_t kept = 0;
      if (word == "keep" && words >> kept) {
        bytes = whole.substr(0, kept);
      } else if (word == "from" && words >> kept) {
        bytes += whole.substr(kept);
      } else if (word == "rest") {
        bytes += whole.substr(bytes.size());
      } else {
        const QStringList parts = QString::fromStdString(word).split('x');
        bytes += QByteArray::fromHex(parts[0].toLatin1()).repeated(parts.value(1, "1").toInt()).toStdString();
      }
    }
  }
  return bytes;
}

std::string Drawn(const Picture& picture) {
  const std::map<QRgb, char> names = {{0xFF112233, '#'}, {0xFF332211, '%'}, {0xFF787878, 'x'},
                                      {0xFFFF0000, 'R'}, {0xFF0000FF, 'B'}, {0, ' '},
                                      {0xFFFFFFFF, ' '}};
  std::ostringstream text;
  text << std::lround(picture.WidthTwips()) << " x " << std::lround(picture.HeightTwips());
  const QImage image =
      dynamic_cast<const QtPicture&>(picture).Decode(kCells * 10).convertToFormat(QImage::Format_ARGB32);
  std::vector<std::pair<std::string, int>> rows;  // with how often they stand there
  for (int y = 0; y < kCells.height(); ++y) {
    std::string row;
    for (int x = 0; x < kCells.width(); ++x) {
      const auto name = names.find(image.pixel((2 * x + 1) * image.width() / kCells.width() / 2,
                                               (2 * y + 1) * image.height() / kCells.height() / 2));
      row += name == names.end() ? '?' : name->second;
    }
    if (rows.empty() || rows.back().first != row) rows.emplace_back(row, 0);
    ++rows.back().second;
  }
  static std::vector<std::pair<std::string, int>> last;
  if (std::exchange(last, rows) == rows) return text.str() + "\n|as before|";
  for (const auto& [row, times] : rows)
    text << "\n|" << row << "|" << (times > 1 ? " " + std::to_string(times) + " times" : "");
  return text.str();
}

// Texts are drawn in the fonts that are installed; here they are as the drawing holds them, with their style.
std::string TextsOf(const QString& svg) {
  std::string texts;
  static const QRegularExpression text("<text ([^>]*)>(.*?)</text>",
                                       QRegularExpression::DotMatchesEverythingOption);
  static const QRegularExpression style(
      "(?:font-size|font-weight|font-style|text-decoration|text-anchor|fill) *[=:] *\"?([^\";]*)");
  for (const QRegularExpressionMatch& match : text.globalMatch(svg)) {
    QStringList told;
    for (const QRegularExpressionMatch& part : style.globalMatch(match.captured(1))) told << part.captured(1);
    const QString words = match.captured(2).remove("<![CDATA[").remove("]]>").trimmed();
    texts += "\n\"" + words.toStdString() + "\" " + told.join(' ').toStdString();
  }
  return texts;
}

TEST(OldFormats, AreDrawnAsTheCasesTellOrRefusedSoon) {
  std::string whole, lastTexts;
  TestMachine machine;
  const QtPictureLoader loader(*machine.Files, MORVANE_DECODER);
  ExpectCases("tests/platform/old_formats/pictures.txt", [&](const std::string& given) -> std::string {
    const std::string bytes = BytesOf(given, whole);
    if (!given.starts_with("keep") && given.find("\nfrom ") == std::string::npos) whole = bytes;
    const auto format = FormatOf(QByteArray::fromStdString(bytes));
    if (!format) return "of no old format";
    machine.WriteFile("C:\\a", bytes);
    const auto start = std::chrono::steady_clock::now();
    PicturePtr picture;
    ResumeNext([&] { picture = loader.LoadPicture("C:\\a"); });
    EXPECT_LT(std::chrono::steady_clock::now() - start, kMostTime) << given;
    if (!picture) return "cannot be decoded";
    const auto decoded = DecodeOldFormat(MORVANE_DECODER, *format, QByteArray::fromStdString(bytes));
    const std::string texts = TextsOf(*decoded);
    return Drawn(*picture) + (std::exchange(lastTexts, texts) == texts ? "" : texts);
  });
}

TEST(OldFormats, NeedTheirDecoderWhoseAbsenceIsTold) {
  TestMachine machine;
  machine.WriteFile("C:\\a.wmf", "\xD7\xCD\xC6\x9A");
  try {
    QtPictureLoader(*machine.Files, "/nowhere/morvane-decode").LoadPicture("C:\\a.wmf");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_STREQ(error.what(),
                 "L'immagine 'C:\\a.wmf' non può essere letta: manca il programma 'morvane-decode'.");
  }
}

using std::chrono::milliseconds;

constexpr qsizetype kMostBytes = 1024 * 1024;

std::optional<QByteArray> Misbehave(const char* deed) {
  return RunDecoder(MORVANE_MISBEHAVING_DECODER, deed, "", kMostBytes, DecoderLimits::kWallTime);
}

TEST(DecoderProcess, EndsWithAForbiddenDeedAndAtItsLimits) {
  EXPECT_EQ(Misbehave("nothing"), "let through");
  for (const char* deed : {"read-file", "write-file", "socket", "fork", "exec", "run-memory", "memory",
                           "flood", "crash", "loop"}) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Misbehave(deed), std::nullopt) << deed;
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(3500)) << deed;
  }
}

TEST(DecoderProcess, IsBelievedOnlyWhatWasAgreed) {
  for (const OldFormat format : {OldFormat::Emf, OldFormat::Wmf, OldFormat::Iff})
    EXPECT_EQ(DecodeOldFormat(MORVANE_MISBEHAVING_DECODER, format, ""), std::nullopt);
}

TEST(DecoderProcess, FeedsAndCollectsMoreThanAPipeHoldsAndSurvivesWhatDoesNotReadOrIsNotThere) {
  const QByteArray input(5'000'000, 'x');
  const auto run = [&](const char* program, const char* argument, qsizetype mostBytes) {
    return RunDecoder(program, argument, input, mostBytes, milliseconds(10000));
  };
  EXPECT_EQ(run("/bin/cat", "-", input.size()), input);
  EXPECT_EQ(run("/bin/cat", "-", input.size() - 1), std::nullopt);
  EXPECT_EQ(run("/bin/true", "", kMostBytes), "");
  EXPECT_EQ(run("/bin/false", "", kMostBytes), std::nullopt);
  EXPECT_EQ(run("/nowhere/decoder", "emf", kMostBytes), std::nullopt);
}

TEST(SvgReferences, AreAcceptedOnlyWhereTheyStayInside) {
  ExpectCases("tests/platform/old_formats/svg_references.txt", [](const std::string& given) {
    const bool accepted = RefersOnlyToItself(QByteArray::fromStdString(given).chopped(1));
    return accepted ? "accepted" : "refused";
  });
}

}  // namespace
}  // namespace Morvane
