#include <gmock/gmock.h>

#include "platform/qt/pictures/old_formats.h"
#include "platform/qt/pictures/qt_picture.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "sample_files.h"
#include "tests/support/test_machine.h"

namespace Morvane {

namespace {

using testing::HasSubstr;
using testing::Not;

// A picture's size in twips and, row by row, how often it comes and what is drawn in the middle of its cells:
// "#" #112233, "%" #332211, "x" #787878, "R" and "B" red and blue, "." nothing, "?" anything else.
std::string Drawn(const std::string& bytes, int columns, int rows) {
  TestMachine machine;
  machine.WriteFile("C:\\a.wmf", bytes);
  const PicturePtr picture = QtPictureLoader(*machine.Files, MORVANE_DECODER).LoadPicture("C:\\a.wmf");
  const QImage image = dynamic_cast<const QtPicture&>(*picture).Decode(QSize(columns, rows) * 10);
  const std::map<QRgb, char> names = {{0xFF112233, '#'}, {0xFF332211, '%'}, {0xFF787878, 'x'},
                                      {0xFFFF0000, 'R'}, {0xFF0000FF, 'B'}, {0, '.'},
                                      {0xFFFFFFFF, '.'}};
  std::vector<std::pair<std::string, int>> drawn;
  for (int row = 0; row < rows; ++row) {
    std::string cells;
    for (int column = 0; column < columns; ++column) {
      const QPoint middle((2 * column + 1) * image.width() / columns / 2,
                          (2 * row + 1) * image.height() / rows / 2);
      const auto name = names.find(image.convertToFormat(QImage::Format_ARGB32).pixel(middle));
      cells += name == names.end() ? '?' : name->second;
    }
    if (drawn.empty() || drawn.back().first != cells) drawn.emplace_back(cells, 0);
    ++drawn.back().second;
  }
  std::string text = std::to_string(std::lround(picture->WidthTwips())) + " x " +
                     std::to_string(std::lround(picture->HeightTwips()));
  for (const auto& [cells, times] : drawn) text += ", " + std::to_string(times) + cells;
  return text;
}

std::string SvgOf(const std::string& bytes) {
  const auto decoded = DecodeOldFormat(MORVANE_DECODER, FormatOf(bytes).value(), bytes);
  return std::get<DecodedSvg>(decoded.value()).text.toStdString();
}

TEST(OldFormatOf, TellsNoneByBytesThatAreNone) {
  for (const char* other : {"", "FORM", "GIF89a", "FORM....8SVX", "\1"})
    EXPECT_EQ(FormatOf(other), std::nullopt);
}

// A frame, a frame that is the rectangle itself, none.
TEST(DecodeEmf, DrawsWhatLiesInItsFrameElseInItsBounds) {
  const std::string inFrame = "5669 x 2835, 1.........., 3.########., 1..........";
  EXPECT_EQ(Drawn(Samples::Emf(), 10, 5), inFrame);
  std::string emf = Samples::Emf();
  EXPECT_EQ(Drawn(emf.replace(24, 16, Samples::Longs({1000, 1000, 9000, 4000})), 3, 2), "4535 x 1701, 2###");
  EXPECT_EQ(Drawn(emf.replace(24, 16, Samples::Longs({0, 0, 0, 0})), 3, 2), "12000 x 4500, 2###");
  // A text of glyph numbers is left out.
  const std::string text = Samples::Longs({0, 0, 0, 0, 1, 0, 0, 10, 10, 2, 76, 0x10, 0, 0, 0, 0, 80}) +
                           Samples::Words({36, 37}) + Samples::Longs({9, 9});
  EXPECT_THAT(SvgOf(Samples::Emf(Samples::EmfRecord(84, text))),
              AllOf(HasSubstr("#112233"), Not(HasSubstr("$%"))));
}

TEST(DecodeWmf, DrawsShapesAndBitmapsInItsWindowWithOrWithoutAPlaceableHeader) {
  const std::string drawing =
      ", 1...................., 1..##############...., 10..xxxxxxxxxx####...., 3..##############...., "
      "5....................";
  const std::string wmf = Samples::Wmf("", Samples::WmfBitmap());
  EXPECT_EQ(Drawn(wmf, 20, 20), "1440 x 2880" + drawing);
  EXPECT_EQ(Drawn(wmf.substr(22), 20, 20), "1500 x 3000" + drawing);
  EXPECT_EQ(Drawn(Samples::Wmf("", Samples::WmfShapes()), 5, 10), "1440 x 2880, 1%%%%%, 1%%BBB, 8BBBBB");
}

TEST(DecodeWmf, PlacesAndEscapesItsTexts) {
  const std::string svg = SvgOf(Samples::Wmf("<image xlink:href=\"/x\"/>&\xE8", Samples::WmfTurnedText()));
  EXPECT_THAT(svg, HasSubstr("translate(720.0000 1008.0000) rotate(0.0000)"));
  EXPECT_THAT(svg, HasSubstr("font-family=\"Arial\" text-anchor=\"middle\" font-weight=\"bold\""));
  EXPECT_THAT(svg, HasSubstr("&lt;image xlink:href=\"/x\"/&gt;&amp;è</text>"));
  EXPECT_THAT(svg, HasSubstr("rotate(-90.0000)"));
  EXPECT_THAT(
      svg,
      HasSubstr("text-anchor=\"end\" font-style=\"italic\" text-decoration=\"underline line-through\" fill"));
  EXPECT_THAT(svg, HasSubstr(">b </text>"));
  EXPECT_THAT(svg, Not(HasSubstr("<image")));
}

TEST(DecodeIff, DrawsOpaquePixelsOfItsOwnWidth) {
  EXPECT_EQ(Drawn(Samples::Ilbm(3, 2, std::string("\xA0\0\x40\0", 4)), 3, 2), "45 x 30, 1BRB, 1RBR");
}

TEST(DecodeOldFormat, RefusesTruncatedForeignAndHugeFilesSoon) {
  const std::string iff = Samples::Ilbm(16, 4, "12345678");
  std::string hugeEmf = Samples::Emf();
  hugeEmf.replace(24, 16, Samples::Longs({0, 0, 2'000'000'000, 2'000'000'000}));
  std::string hugeWmf = Samples::Wmf();
  hugeWmf.replace(6, 10, Samples::Words({-32768, -32768, 32767, 32767, 1}));
  const std::string foreign(100'000, '\x5A');
  const std::string emf = Samples::Emf(), wmf = Samples::Wmf();
  const std::pair<OldFormat, std::vector<std::string>> files[] = {
      {OldFormat::Emf, {"", emf.substr(0, 43), emf.substr(0, emf.size() / 2), foreign, hugeEmf}},
      {OldFormat::Wmf, {"", wmf.substr(0, 21), wmf.substr(0, 39), foreign, hugeWmf}},
      {OldFormat::Iff,
       {"", iff.substr(0, 12), iff.substr(0, 60), foreign, Samples::Ilbm(60000, 60000, "a")}}};
  for (const auto& [format, refused] : files) {
    for (const std::string& bytes : refused) {
      const auto start = std::chrono::steady_clock::now();
      EXPECT_FALSE(DecodeOldFormat(MORVANE_DECODER, format, bytes)) << bytes.size();
      EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    }
  }
}

}  // namespace

}  // namespace Morvane
