#include <gtest/gtest.h>

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QPainter>
#include <QRandomGenerator>

#include "platform/drawing/drawing_surface.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

QImage Noise(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  QRandomGenerator random(1902);
  random.fillRange(reinterpret_cast<quint32*>(image.bits()), qsizetype{width} * height);
  return image.convertToFormat(QImage::Format_RGB888).convertToFormat(QImage::Format_RGB32);
}

QByteArray AsJpeg(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, "jpg", 85));
  return bytes;
}

class SheetPicturesTest : public testing::Test {
 protected:
  // The PDF file of a sheet with this picture in a box of 50 mm.
  QByteArray Sheet(const QByteArray& jpeg) {
    machine_.WriteFile("C:\\foto.jpg", jpeg.toStdString());
    const QtTextMetrics metrics;
    DrawingSurface page(metrics);
    page.SetScaleMode(ScaleMode::Millimetres);
    page.PaintPicture(loader_.LoadPicture("C:\\foto.jpg"), 10, 10, 50, 50);
    const std::string path = machine_.Root.Path("foglio.pdf");
    EXPECT_TRUE(WritePdf(path, page.Drawing(), PageOrientation::Portrait, kA4, "").empty());
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }

  TestMachine machine_;
  QtPictureLoader loader_{*machine_.Files, OldFormatDecoderPath()};
};

// The pixels of a JPEG file as they stand in it: what follows the start of its scan.
QByteArray ScanOf(const QByteArray& jpeg) {
  return jpeg.mid(jpeg.indexOf("\xFF\xDA"));
}

TEST_F(SheetPicturesTest, JpegThatIsShownWholeStandsOnTheSheetBitForBitWithoutWhatTheCameraTells) {
  const QByteArray plain = AsJpeg(Noise(300, 200));
  const QByteArray note("\xFF\xE1\0\x0AMilano 1", 12);
  QImage srgb = Noise(200, 300);
  srgb.setColorSpace(QColorSpace::SRgb);
  const QByteArray listOfPictures("\xFF\xE2\0\x06MPF\0", 8);  // as phones write it
  for (const QByteArray& jpeg : {plain, QByteArray(plain).insert(2, note),
                                 QByteArray(plain).insert(2, listOfPictures), AsJpeg(srgb)}) {
    const QByteArray sheet = Sheet(jpeg);
    EXPECT_TRUE(sheet.contains(ScanOf(jpeg)));
    EXPECT_FALSE(sheet.contains("Milano"));
    EXPECT_FALSE(sheet.contains("ICC_PROFILE"));
  }
}

TEST_F(SheetPicturesTest, JpegThatASheetWouldShowOtherwiseIsEncodedAnew) {
  QImage adobe = Noise(300, 200);
  adobe.setColorSpace(QColorSpace::AdobeRgb);
  const QByteArray onItsSide(
      "\xFF\xE1\0\x22"
      "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0",
      36);
  QByteArray otherColours = AsJpeg(Noise(300, 200));
  otherColours.insert(2, QByteArray("\xFF\xEE\0\x0E"
                                    "Adobe\0\x64\0\0\0\0\0",
                                    16));
  const QByteArray plain = AsJpeg(Noise(300, 200));
  const QByteArray cutOff = plain.left(plain.size() * 9 / 10);
  const QByteArray filledUp = QByteArray(plain).insert(2, "\xFF");
  const QByteArray hiddenFrame = QByteArray(plain).insert(2, QByteArray("\xFF\xD0\0\x04\0\0", 6));
  const QByteArray endlessHead = QByteArray(plain).insert(2, QByteArray("\xFF\xFE\0\2", 4).repeated(1001));
  const QByteArray tooFine = AsJpeg(Noise(1300, 1300));
  for (const QByteArray& jpeg : {AsJpeg(adobe), AsJpeg(Noise(300, 200)).insert(2, onItsSide), otherColours,
                                 AsJpeg(Noise(300, 200).convertToFormat(QImage::Format_Grayscale8)), cutOff,
                                 filledUp, hiddenFrame, endlessHead, tooFine}) {
    const QByteArray sheet = Sheet(jpeg);
    EXPECT_FALSE(sheet.contains(ScanOf(jpeg)));
    EXPECT_GT(sheet.size(), 30000) << "a picture of noise";
  }
}

// Of each pixel of the smaller picture, whatever format the file has.
TEST_F(SheetPicturesTest, JpegIsReducedAsOtherFormatsAre) {
  QImage scene(1200, 900, QImage::Format_RGB32);
  QLinearGradient sky(0, 0, 1200, 900);
  sky.setColorAt(0, Qt::yellow);
  sky.setColorAt(0.5, Qt::blue);
  sky.setColorAt(1, Qt::white);
  QPainter(&scene).fillRect(scene.rect(), sky);
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  scene.save(&buffer, "png");
  machine_.WriteFile("C:\\foto.png", png.toStdString());
  machine_.WriteFile("C:\\foto.jpg", AsJpeg(scene).toStdString());
  for (const QSize size :
       {QSize(1199, 899), QSize(1000, 900), QSize(601, 333), QSize(170, 77), QSize(1, 3)}) {
    const auto decoded = [&](const char* name) {
      return dynamic_cast<const QtPicture&>(*loader_.LoadPicture(name)).Decode(size);
    };
    const QImage jpeg = decoded("C:\\foto.jpg");
    const QImage reference = decoded("C:\\foto.png");
    ASSERT_EQ(jpeg.size(), size);
    for (const QPoint at : {QPoint(0, 0), QPoint(size.width() / 3, size.height() / 2),
                            QPoint(size.width() - 1, size.height() - 1), QPoint(size.width() - 1, 0)}) {
      EXPECT_NEAR(qRed(jpeg.pixel(at)), qRed(reference.pixel(at)), 6) << size.width() << ' ' << at.x();
      EXPECT_NEAR(qGreen(jpeg.pixel(at)), qGreen(reference.pixel(at)), 6) << size.width() << ' ' << at.x();
      EXPECT_NEAR(qBlue(jpeg.pixel(at)), qBlue(reference.pixel(at)), 6) << size.width() << ' ' << at.x();
    }
  }
}

}  // namespace
}  // namespace Morvane
