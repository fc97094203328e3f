#include <gmock/gmock.h>
#include <sys/resource.h>

#include <QBuffer>
#include <QElapsedTimer>
#include <QPainter>
#include <QtEndian>
#include <sstream>

#include "platform/drawing/drawing_surface.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "platform/runtime_error.h"
#include "platform/units.h"
#include "tests/support/held_text.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

const std::string kStartOfScan("\xFF\xDA\0\x02", 4);

// Red at the left, blue at the right.
QImage TwoHalves(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::red);
  QPainter(&image).fillRect(width / 2, 0, width - width / 2, height, Qt::blue);
  return image;
}

std::string Encoded(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, format)) << format;
  return bytes.toStdString();
}

std::string ColourOf(QRgb pixel) {
  constexpr int kNear = 12;
  constexpr std::pair<const char*, QRgb> kNames[] = {
      {"red", 0xFFFF0000},   {"blue", 0xFF0000FF},  {"brick", 0xFFC83C28}, {"grey", 0xFF808080},
      {"white", 0xFFFFFFFF}, {"black", 0xFF000000}, {"nothing", 0}};
  for (const auto& [name, value] : kNames) {
    const int off =
        std::max({std::abs(qRed(pixel) - qRed(value)), std::abs(qGreen(pixel) - qGreen(value)),
                  std::abs(qBlue(pixel) - qBlue(value)), std::abs(qAlpha(pixel) - qAlpha(value))});
    if (off <= kNear) return name;
  }
  return QString::number(pixel, 16).toStdString();
}

// What is seen of a picture at a size, near its upper left and its lower right corner.
std::string SeenOf(const PicturePtr& picture, QSize size) {
  const QImage seen = dynamic_cast<const QtPicture&>(*picture).Decode(size);
  EXPECT_EQ(seen.size(), size);
  return ColourOf(seen.pixel(size.width() / 8, size.height() / 8)) + " " +
         ColourOf(seen.pixel(size.width() * 7 / 8, size.height() * 7 / 8));
}

class QtPictureTest : public testing::Test {
 protected:
  PicturePtr Load(const std::string& bytes) {
    machine_.WriteFile("C:\\foto", bytes);
    return loader_.LoadPicture("C:\\foto");
  }
  // Its size in pixels and what is seen of it, which is the same at any size, or why it is refused.
  std::string Told(const std::string& bytes) try {
    const PicturePtr picture = Load(bytes);
    const QSize size(static_cast<int>(picture->WidthTwips() / kTwipsPerPixel),
                     static_cast<int>(picture->HeightTwips() / kTwipsPerPixel));
    std::string told = std::to_string(size.width()) + " x " + std::to_string(size.height());
    std::string last;
    for (const double part : {1.0, 0.9, 0.1}) {
      const std::string seen =
          SeenOf(picture, (QSizeF(size) * part).toSize().expandedTo({8, 8}).boundedTo(size));
      if (std::exchange(last, seen) != seen) told += " " + seen;
    }
    return told;
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
    return error.what();
  }

  TestMachine machine_;
  QtPictureLoader loader_{*machine_.Files, OldFormatDecoderPath()};
};

// A photo whose notes tell how the camera was held.
std::string HeldSo(char orientation, std::string jpeg) {
  std::string notes(
      "\xFF\xE1\0\x22"
      "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\0\0\0\0\0\0\0",
      36);
  notes[29] = orientation;
  return jpeg.insert(2, notes);
}

// One of the fuzzer's files, or two halves in a format, and what is done to its bytes.
std::string BytesOf(const std::string& given) {
  std::istringstream words(given);
  std::string what, format, deed;
  words >> what >> format;
  std::ostringstream bytes;
  if (what == "text") return given.substr(std::min(given.size(), std::size_t{5}));
  if (what == "file") bytes << std::ifstream(MORVANE_SOURCE_DIR "/fuzz/corpus/images/" + format).rdbuf();
  const QImage halves = TwoHalves(1600, 800);
  if (what == "halves") bytes << Encoded(halves, format.c_str());
  if (what == "few") bytes << Encoded(halves.convertToFormat(QImage::Format_Indexed8), format.c_str());
  std::string done = bytes.str();
  for (std::size_t number = 0; words >> deed >> number;) {
    if (deed == "held") done = HeldSo(static_cast<char>(number), done);
    if (deed == "without") done.erase(0, number);
    if (deed == "cut-at-percent") done.resize(done.size() * number / 100);
    if (deed != "wide-and-high") continue;
    for (const int at : {18, 22}) qToLittleEndian(static_cast<quint32>(number), done.data() + at);
  }
  return done;
}

TEST_F(QtPictureTest, AreReadByTheirContentAsTheCasesTell) {
  ExpectCases("tests/platform/qt/pictures.txt",
              [&](const std::string& given) { return Told(BytesOf(given.substr(0, given.size() - 1))); });
}

// A phone appends its film to the photo: megabytes in which the start of a scan stands by chance.
TEST_F(QtPictureTest, WhatFollowsAPhotoCostsNothingAndHostileScansAreRefusedSoonAndForLittleMemory) {
  const std::string photo = Encoded(TwoHalves(4000, 3000), "jpg");
  const std::string seen = "4000 x 3000 red blue";
  std::string film = "....ftypmp42";
  for (int i = 0; i < 500; ++i) film += std::string(1000, 'x') + kStartOfScan;
  std::string notes;
  for (int i = 0; i < 50; ++i) notes += std::string("\xFF\xFE\xFF\xFF", 4) + std::string(0xFFFD, ' ');
  EXPECT_EQ(Told(photo + film), seen);
  EXPECT_EQ(Told(photo.substr(0, 2) + notes + photo.substr(2) + film), seen);
  // In front of the end the same is refused, whatever segment hides an end within it.
  QElapsedTimer timer;
  timer.start();
  const std::string thumbnail("\xFF\xE1\x00\x06\xFF\xD8\xFF\xD9", 8);
  EXPECT_THAT(Told("\xFF\xD8" + thumbnail + photo.substr(2, photo.size() - 4) + film + "\xFF\xD9"),
              testing::HasSubstr("troppo grande"));
  EXPECT_LT(timer.elapsed(), 2000);
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  EXPECT_LT(usage.ru_maxrss, 1536L * 1024);
}

TEST_F(QtPictureTest, FileInUseIsReadAgainOnceItChanged) {
  const PicturePtr before = Load(Encoded(TwoHalves(64, 32), "png"));
  EXPECT_EQ(loader_.LoadPicture("C:\\foto"), before);
  EXPECT_EQ(Load(Encoded(TwoHalves(128, 32), "png"))->WidthTwips(), 2 * before->WidthTwips());
}

// What the toolkit makes of a picture's texts is no affair of the paper.
TEST_F(QtPictureTest, TransparentPictureIsPrintedAsItIsSeenWhateverItsTextsSay) {
  const QtTextMetrics metrics;
  DrawingSurface page(metrics);
  page.SetScaleMode(ScaleMode::Millimetres);
  page.PaintPicture(Load(BytesOf("file hostile_text.png")), 10, 10, 50, 50);
  const std::string sheet = machine_.Root.Path("foglio");
  WritePdf(sheet, page.Drawing(), PageOrientation::Portrait, kA4, "");
  ASSERT_EQ(std::system(("pdftoppm -r 25.4 -png -singlefile '" + sheet + "' '" + sheet + "'").c_str()), 0);
  const QImage paper(QString::fromStdString(sheet + ".png"));
  EXPECT_EQ(ColourOf(paper.pixel(22, 35)) + ColourOf(paper.pixel(47, 35)), "redwhite");
}

}  // namespace
}  // namespace Morvane
