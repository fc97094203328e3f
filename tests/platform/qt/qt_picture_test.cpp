#include <gmock/gmock.h>
#include <sys/resource.h>

#include <QBuffer>
#include <QColorSpace>
#include <QElapsedTimer>
#include <QPainter>
#include <QtEndian>
#include <atomic>
#include <fstream>
#include <thread>

#include "platform/drawing/drawing_surface.h"
#include "platform/files/file_system.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/picture_cache.h"
#include "platform/qt/pictures/picture_limits.h"
#include "platform/qt/pictures/qt_picture.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "platform/runtime_error.h"
#include "platform/units.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

constexpr qint64 kHostileMs = 2000;
constexpr long kHostileKilobytes = 1536L * 1024;
const std::string kStartOfScan("\xFF\xDA\0\x02", 4);

// Red at the left, blue at the right.
QImage TwoHalves(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::red);
  QPainter(&image).fillRect(width / 2, 0, width - width / 2, height, Qt::blue);
  return image;
}

std::string Encoded(const QImage& image, const char* format, int quality = -1) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, format, quality)) << format;
  return bytes.toStdString();
}

QImage Decoded(const PicturePtr& picture, int width, int height) {
  return dynamic_cast<const QtPicture&>(*picture).Decode(QSize(width, height));
}

class QtPictureTest : public testing::Test {
 protected:
  PicturePtr Load(const std::string& name, const std::string& bytes) {
    machine_.WriteFile("C:\\" + name, bytes);
    return loader_.LoadPicture("C:\\" + name);
  }

  void ExpectRefused(const std::string& name, const std::string& bytes, const char* reason = "") {
    try {
      Load(name, bytes);
      FAIL() << name;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
      EXPECT_THAT(error.what(), testing::AllOf(testing::HasSubstr(name), testing::HasSubstr(reason)));
    }
  }

  TestMachine machine_;
  QtPictureLoader loader_{*machine_.Files, OldFormatDecoderPath()};
};

TEST_F(QtPictureTest, FormatsAreToldByTheirContentWhateverTheNameSays) {
  for (const char* format : {"jpg", "bmp", "png", "ico", "tiff", "webp"}) {
    const PicturePtr picture = Load("foto.gif", Encoded(TwoHalves(64, 32), format));
    EXPECT_EQ(picture->WidthTwips(), 64 * 15) << format;
    EXPECT_EQ(picture->HeightTwips(), 32 * 15) << format;
    const QImage small = Decoded(picture, 16, 20);
    EXPECT_EQ(small.size(), QSize(16, 20)) << format;
    EXPECT_GT(qRed(small.pixel(2, 10)), 200) << format;
    EXPECT_GT(qBlue(small.pixel(13, 10)), 200) << format;
  }
}

TEST_F(QtPictureTest, ReadsAGifAndABitmapWithoutFileHeader) {
  const std::string gif("GIF89a\x01\0\x01\0\x80\0\0\xFF\0\0\0\0\0,\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0;",
                        35);
  EXPECT_EQ(Load("punto.gif", gif)->WidthTwips(), 15);
  for (const auto format : {QImage::Format_RGB32, QImage::Format_Indexed8}) {
    const std::string bmp = Encoded(TwoHalves(64, 32).convertToFormat(format), "bmp");
    const QImage small = Decoded(Load("foto.dib", bmp.substr(14)), 64, 32);
    EXPECT_EQ(small.pixelColor(2, 2), Qt::red);
    EXPECT_EQ(small.pixelColor(60, 2), Qt::blue);
  }
}

TEST_F(QtPictureTest, OfAnIconTheLargestImageIsTakenWhereverItStands) {
  for (const std::vector<int>& sides : {std::vector{16, 48, 32}, {48, 16}, {16, 48}}) {
    std::string list("\0\0\1\0", 4);
    (list += static_cast<char>(sides.size())) += '\0';
    std::string images;
    for (const int side : sides) {
      const std::string icon = Encoded(TwoHalves(side, side), "ico");  // 6 bytes, 16 of its list, the image
      list += icon.substr(6, 16);
      const auto at = static_cast<quint32>(6 + 16 * sides.size() + images.size());
      qToLittleEndian(at, list.data() + list.size() - 4);
      images += icon.substr(22);
    }
    const PicturePtr picture = Load("icona.ico", list + images);
    EXPECT_EQ(picture->WidthTwips(), 48 * 15);
    EXPECT_EQ(Decoded(picture, 48, 48).pixelColor(25, 20), Qt::blue);
  }
}

// A photo whose notes tell how the camera was held.
std::string HeldSo(char orientation, std::string jpeg) {
  std::string notes(
      "\xFF\xE1\0\x22"
      "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\0\0\0\0\0\0\0",
      36);
  notes[29] = orientation;
  return jpeg.insert(2, notes);
}

TEST_F(QtPictureTest, RecordedRotationIsAppliedToSizeAndPixels) {
  const std::string jpeg = Encoded(TwoHalves(1600, 800), "jpg");
  const auto isRed = [](QRgb pixel) { return qRed(pixel) > 200 && qBlue(pixel) < 50; };
  for (const auto& [orientation, redFirst, upright] :
       {std::tuple(1, true, false), {3, false, false}, {6, true, true}, {8, false, true}}) {
    SCOPED_TRACE(orientation);
    const PicturePtr picture = Load("foto.jpg", HeldSo(static_cast<char>(orientation), jpeg));
    EXPECT_EQ(picture->WidthTwips(), (upright ? 800 : 1600) * kTwipsPerPixel);
    for (const int size : {1600, 1400, 160}) {  // from the file and from the overview
      const QSize wanted = upright ? QSize(size / 2, size) : QSize(size, size / 2);
      const QImage seen = Decoded(picture, wanted.width(), wanted.height());
      ASSERT_EQ(seen.size(), wanted);
      EXPECT_EQ(isRed(seen.pixel(10, 10)), redFirst);
      EXPECT_EQ(isRed(seen.pixel(wanted.width() - 10, wanted.height() - 10)), !redFirst);
    }
  }
}

// Fine stripes become an even grey; picking single pixels would leave stripes.
TEST_F(QtPictureTest, ReducedPicturesAreAveraged) {
  QImage stripes(1200, 1200, QImage::Format_RGB32);
  for (int y = 0; y < 1200; ++y) {
    for (int x = 0; x < 1200; ++x) stripes.setPixel(x, y, x % 4 < 2 ? 0xFF000000 : 0xFFFFFFFF);
  }
  for (const char* format : {"jpg", "png", "bmp"}) {
    const QImage small = Decoded(Load("foto", Encoded(stripes, format)), 110, 110);
    for (int x = 5; x < 105; ++x) EXPECT_NEAR(qGray(small.pixel(x, 50)), 128, 24) << format << x;
  }
}

TEST_F(QtPictureTest, BrokenAndHostileFilesAreRefusedSoonAndForLittleMemory) {
  const std::string png = Encoded(TwoHalves(640, 320), "png");
  QElapsedTimer timer;
  timer.start();
  ExpectRefused("vuoto.jpg", "");
  ExpectRefused("testo.jpg", "Caro diario, oggi niente foto.");
  ExpectRefused("meta.png", png.substr(0, png.size() / 2));
  const std::string jpeg = Encoded(TwoHalves(640, 320), "jpg");
  ExpectRefused("testa.jpg", jpeg.substr(0, 300));
  // What is missing of a photo stays grey; the rest can still be printed.
  EXPECT_GT(qRed(Decoded(Load("foto.jpg", jpeg.substr(0, jpeg.size() * 3 / 4)), 64, 32).pixel(10, 2)), 200);
  ExpectRefused("disegno.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");

  std::string giant = Encoded(TwoHalves(64, 32).convertToFormat(QImage::Format_Indexed8), "bmp");
  giant[18] = giant[22] = 0x30;
  giant[19] = giant[23] = 0x75;  // 30000 by 30000
  ExpectRefused("gigante.bmp", giant);

  std::string scans = Encoded(TwoHalves(1000, 1000), "jpg");
  const std::string end = scans.substr(scans.size() - 2);
  scans.resize(scans.size() - 2);
  for (int i = 0; i < 2000; ++i) scans += kStartOfScan;
  ExpectRefused("passate.jpg", scans + end, "troppo grande");
  EXPECT_LT(timer.elapsed(), kHostileMs);
  rusage usage;
  getrusage(RUSAGE_SELF, &usage);
  EXPECT_LT(usage.ru_maxrss, kHostileKilobytes);
}

// In pixels, and the scans of a JPEG; 0 for other formats.
TEST(PictureLimits, RefuseWhatTakesTooLongOrTooMuch) {
  const auto passes = [](int width, int height, int scans) {
    return !PictureLimits::Exceeds({width, height}, scans);
  };
  EXPECT_TRUE(passes(8192, 8192, 0) && passes(16384, 8192, 1) && passes(8192, 8192, 16));
  EXPECT_FALSE(passes(8192, 8193, 0) || passes(16384, 8193, 1) || passes(8192, 8192, 17));
}

TEST_F(QtPictureTest, FileInUseIsReadAgainOnceItChanged) {
  const PicturePtr before = Load("foto.png", Encoded(TwoHalves(64, 32), "png"));
  EXPECT_EQ(loader_.LoadPicture("C:\\foto.png"), before);
  const PicturePtr after = Load("foto.png", Encoded(TwoHalves(128, 32), "png"));
  EXPECT_NE(after, before);
  EXPECT_EQ(after->WidthTwips(), 2 * before->WidthTwips());
}

// A phone appends its film to the photo: megabytes in which the start of a scan stands by chance.
TEST_F(QtPictureTest, WhatFollowsAPhotoCostsNothing) {
  const std::string photo = Encoded(TwoHalves(4000, 3000), "jpg");
  std::string film = "....ftypmp42";
  for (int i = 0; i < 500; ++i) film += std::string(1000, 'x') + kStartOfScan;
  std::string notes;
  for (int i = 0; i < 50; ++i) notes += std::string("\xFF\xFE\xFF\xFF", 4) + std::string(0xFFFD, ' ');
  for (const std::string& file : {photo + film, photo.substr(0, 2) + notes + photo.substr(2) + film}) {
    const PicturePtr picture = Load("foto.jpg", file);
    EXPECT_GT(qRed(Decoded(picture, 64, 32).pixel(10, 2)), 200);
    EXPECT_GT(qBlue(Decoded(picture, 3000, 2000).pixel(2990, 1990)), 200);
  }
  // In front of the end the same is refused, whatever segment hides an end within it.
  const std::string thumbnail("\xFF\xE1\x00\x06\xFF\xD8\xFF\xD9", 8);
  ExpectRefused("passate.jpg", "\xFF\xD8" + thumbnail + photo.substr(2, photo.size() - 4) + film + "\xFF\xD9",
                "troppo grande");
}

TEST_F(QtPictureTest, DecodedPixelsAreSrgbWhateverTheProfile) {
  QImage plain(64, 64, QImage::Format_RGB32);
  plain.fill(qRgb(200, 60, 40));
  for (const auto space : {QColorSpace::SRgb, QColorSpace::AdobeRgb, QColorSpace::DisplayP3}) {
    QImage image = plain;
    image.setColorSpace(QColorSpace::SRgb);
    image.convertToColorSpace(space);
    for (const char* format : {"jpg", "png", "tiff"}) {
      const QColor seen = Decoded(Load("foto", Encoded(image, format)), 64, 64).pixelColor(30, 30);
      EXPECT_NEAR(seen.red(), 200, 3) << format << space;
      EXPECT_NEAR(seen.green(), 60, 3) << format << space;
      EXPECT_NEAR(seen.blue(), 40, 3) << format << space;
    }
  }
  const QImage grey = plain.convertToFormat(QImage::Format_Grayscale8);
  EXPECT_NEAR(Decoded(Load("grigia.jpg", Encoded(grey, "jpg")), 64, 64).pixelColor(30, 30).red(),
              grey.pixelColor(30, 30).red(), 2);
}

TEST_F(QtPictureTest, LoadsManyAtOnceWhileVolumesComeAndGo) {
  constexpr int kPictures = 20;
  const std::string table = machine_.Root.Path() + "/mounts";
  const FileSystem files(machine_.Root.Path(), MountTable({}, table, ""), "");
  const QtPictureLoader loader(files, "");
  machine_.WriteFile("C:\\foto.png", Encoded(TwoHalves(64, 32), "png"));
  std::atomic<int> loaded = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < kPictures; ++i) {
    threads.emplace_back([&] {
      for (int again = 0; again < 10; ++again) loader.LoadPicture("C:\\foto.png");
      ++loaded;
    });
  }
  for (int stick = 0; loaded < kPictures; stick = (stick + 1) % 20) {
    std::ofstream(table, stick == 0 ? std::ios::trunc : std::ios::app)
        << "9 1 8:" << stick << " / /media/" << stick << " rw - vfat /dev/sd" << stick << " rw\n";
    EXPECT_EQ(files.DriveRoots().front(), "C:\\");
  }
  for (std::thread& thread : threads) thread.join();
}

TEST_F(QtPictureTest, CacheGivesTheLastSizeForASizeThatWillNotStay) {
  const PicturePtr picture = Load("foto.png", Encoded(TwoHalves(64, 32), "png"));
  PictureCache cache;
  EXPECT_EQ(cache.Image(picture, QSize(16, 16), Pixels::AsLastTime).size(), QSize(16, 16));
  EXPECT_EQ(cache.Image(picture, QSize(20, 16), Pixels::AsLastTime).size(), QSize(16, 16));
  EXPECT_EQ(cache.Image(picture, QSize(20, 16)).size(), QSize(20, 16));
}

// What the toolkit makes of a picture's texts is no affair of the paper.
TEST_F(QtPictureTest, TransparentPictureIsPrintedAsItIsSeenWhateverItsTextsSay) {
  QImage image(300, 200, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter(&image).fillRect(0, 0, 150, 200, Qt::red);
  image.setText("jpeg 300x200", "no picture");
  const QtTextMetrics metrics;
  DrawingSurface page(metrics);
  page.SetScaleMode(ScaleMode::Millimetres);
  page.PaintPicture(Load("foto.png", Encoded(image, "png")), 10, 10, 50, 50);
  const std::string sheet = machine_.Root.Path("foglio");
  WritePdf(sheet, page.Drawing(), PageOrientation::Portrait, kA4, "");
  ASSERT_EQ(std::system(("pdftoppm -r 25.4 -png -singlefile '" + sheet + "' '" + sheet + "'").c_str()), 0);
  const QImage paper(QString::fromStdString(sheet + ".png"));
  const QColor covered = paper.pixelColor(22, 35);
  EXPECT_TRUE(covered.red() > 240 && covered.green() < 15 && covered.blue() < 15) << covered.rgb();
  EXPECT_EQ(paper.pixelColor(47, 35), QColor(Qt::white));
}

}  // namespace
}  // namespace Morvane
