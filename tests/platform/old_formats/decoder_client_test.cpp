#include "platform/qt/pictures/old_formats.h"

#include <gmock/gmock.h>

#include "platform/runtime_error.h"
#include "sample_files.h"

namespace Morvane {

namespace {

using testing::HasSubstr;
using testing::Not;

DecodedPicture Decode(const std::string& bytes) {
  return DecodeOldFormat(MORVANE_DECODER, FormatOf(bytes).value(), bytes).value();
}

void ExpectRefused(OldFormat format, const std::string& bytes) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(DecodeOldFormat(MORVANE_DECODER, format, bytes));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

TEST(OldFormatOf, TellsTheFormatsByTheirBytes) {
  EXPECT_EQ(FormatOf(Samples::Emf(0)), OldFormat::Emf);
  EXPECT_EQ(FormatOf(Samples::Wmf(0)), OldFormat::Wmf);
  EXPECT_EQ(FormatOf(Samples::Wmf(0).substr(22)), OldFormat::Wmf);
  EXPECT_EQ(FormatOf(Samples::Ilbm(16, 1, "ab")), OldFormat::Iff);
  for (const char* other : {"", "FORM", "GIF89a", "FORM....8SVX", "\1"})
    EXPECT_EQ(FormatOf(other), std::nullopt);
}

TEST(DecodeEmf, GivesItsFrameAndTrueColours) {
  const auto svg = std::get<DecodedSvg>(Decode(Samples::Emf(0x00332211)));
  EXPECT_NEAR(svg.widthTwips, 100 / 25.4 * 1440, 0.1);
  EXPECT_NEAR(svg.heightTwips, 50 / 25.4 * 1440, 0.1);
  EXPECT_THAT(svg.text.toStdString(), HasSubstr("viewBox=\"0.0000 0.0000 1000.0000 500.0000\""));
  EXPECT_THAT(svg.text.toStdString(), HasSubstr("#112233"));
}

TEST(DecodeEmf, LeavesOutATextOfGlyphNumbers) {
  const std::string text = Samples::Longs({0, 0, 0, 0, 1, 0, 0, 10, 10, 2, 76, 0x10, 0, 0, 0, 0, 80}) +
                           Samples::Words({36, 37}) + Samples::Longs({9, 9});
  EXPECT_THAT(
      std::get<DecodedSvg>(Decode(Samples::Emf(0x00332211, Samples::EmfRecord(84, text)))).text.toStdString(),
      HasSubstr("#112233"));
}

TEST(DecodeWmf, GivesItsFrameTrueColoursAndEscapedText) {
  const auto svg = std::get<DecodedSvg>(Decode(Samples::Wmf(0x00332211, "<image xlink:href=\"/x\"/>&\xE8")));
  EXPECT_DOUBLE_EQ(svg.widthTwips, 1440);
  EXPECT_DOUBLE_EQ(svg.heightTwips, 2880);
  EXPECT_THAT(svg.text.toStdString(),
              HasSubstr(R"(x="144.000000" y="144.000000" width="1008.000000" height="2016.000000")"));
  EXPECT_THAT(svg.text.toStdString(), HasSubstr("fill-opacity:1; fill-rule:evenodd; fill:#112233"));
  EXPECT_THAT(svg.text.toStdString(), HasSubstr("text-anchor=\"middle\""));
  EXPECT_THAT(svg.text.toStdString(), HasSubstr("&lt;image xlink:href=\"/x\"/&gt;&amp;è</text>"));
  EXPECT_THAT(svg.text.toStdString(), Not(HasSubstr("<image")));
}

TEST(DecodeWmf, PlacesBitmaps) {
  const auto svg = std::get<DecodedSvg>(Decode(Samples::Wmf(0, "ab", Samples::WmfBitmap())));
  EXPECT_THAT(svg.text.toStdString(),
              HasSubstr(R"(<image x="144.0000" y="288.0000" width="720.0000" height="1440.0000")"));
}

TEST(DecodeIff, GivesOpaquePixelsOfItsOwnWidth) {
  const auto pixels = std::get<DecodedPixels>(Decode(Samples::Ilbm(3, 2, std::string("\xA0\0\x40\0", 4))));
  EXPECT_EQ(pixels.width, 3);
  EXPECT_EQ(pixels.height, 2);
  const std::string red("\xFF\0\0\xFF", 4);
  const std::string blue("\0\0\xFF\xFF", 4);
  EXPECT_EQ(pixels.rgba.toStdString(), blue + red + blue + red + blue + red);
}

TEST(DecodeOldFormat, RefusesTruncatedAndForeignFiles) {
  const std::string emf = Samples::Emf(0);
  const std::string wmf = Samples::Wmf(0);
  const std::string iff = Samples::Ilbm(16, 4, "12345678");
  for (size_t size : {size_t{0}, size_t{43}, emf.size() / 2})
    ExpectRefused(OldFormat::Emf, emf.substr(0, size));
  for (size_t size : {size_t{0}, size_t{21}, size_t{39}}) ExpectRefused(OldFormat::Wmf, wmf.substr(0, size));
  for (size_t size : {size_t{0}, size_t{12}, iff.size() - 5})
    ExpectRefused(OldFormat::Iff, iff.substr(0, size));
  for (OldFormat format : {OldFormat::Emf, OldFormat::Wmf, OldFormat::Iff}) {
    ExpectRefused(format, std::string(100'000, '\x5A'));
  }
}

TEST(DecodeOldFormat, RefusesHugeSizes) {
  ExpectRefused(OldFormat::Iff, Samples::Ilbm(60000, 60000, "ab"));
  std::string emf = Samples::Emf(0);
  emf.replace(24, 16, Samples::Longs({0, 0, 2'000'000'000, 2'000'000'000}));
  ExpectRefused(OldFormat::Emf, emf);
  std::string wmf = Samples::Wmf(0);
  wmf.replace(6, 10, Samples::Words({-32768, -32768, 32767, 32767, 1}));
  ExpectRefused(OldFormat::Wmf, wmf);
}

}  // namespace

}  // namespace Morvane
