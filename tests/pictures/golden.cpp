#include "golden.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPolygon>
#include <QProcess>
#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <sstream>

#include "platform/units.h"

namespace Morvane {
namespace {

// Levels of a colour channel, and pixels: room for the roundings of another processor or a mended font
// library. Builds, vector units and locales of one machine agree to the last bit.
constexpr int kSmoothing = 8;
constexpr int kStrayPixels = 3;

bool TakesOver() {
  return qEnvironmentVariableIsSet("MORVANE_TAKE_PICTURES");
}

QString BuildFile(const std::string& file) {
  QDir().mkpath(MORVANE_PICTURES_SEEN);
  return QString::fromStdString(MORVANE_PICTURES_SEEN "/" + file);
}

bool Differ(QRgb a, QRgb b) {
  return std::abs(qRed(a) - qRed(b)) > kSmoothing || std::abs(qGreen(a) - qGreen(b)) > kSmoothing ||
         std::abs(qBlue(a) - qBlue(b)) > kSmoothing || qAlpha(a) != qAlpha(b);
}

// What the picture doesn't reach is transparent.
QImage OnCanvas(QImage picture, QSize size) {
  QImage canvas(size, QImage::Format_ARGB32);
  canvas.fill(Qt::transparent);
  picture.setDevicePixelRatio(1);
  QPainter(&canvas).drawImage(0, 0, picture);
  return canvas;
}

QPolygon Difference(const QImage& held, const QImage& seen) {
  QPolygon different;
  for (int y = 0; y < seen.height(); ++y) {
    for (int x = 0; x < seen.width(); ++x) {
      if (Differ(held.pixel(x, y), seen.pixel(x, y))) different << QPoint(x, y);
    }
  }
  return different;
}

// The picture pale, with what differs in red and a frame around it.
QImage Marked(QImage picture, const QPolygon& different) {
  QPainter painter(&picture);
  painter.fillRect(picture.rect(), QColor(255, 255, 255, 170));
  painter.setPen(Qt::red);
  painter.drawPoints(different);
  painter.drawRect(different.boundingRect().adjusted(-5, -5, 5, 5));
  return picture;
}

class SheetText {
 public:
  explicit SheetText(const std::vector<RecordingPrinter::Job>& jobs) {
    text_ << std::fixed << std::setprecision(3);
    for (const RecordingPrinter::Job& job : jobs) {
      text_ << (job.orientation == PageOrientation::Portrait ? "portrait" : "landscape") << " \"" << job.title
            << "\"\n";
      for (const Shape& shape : job.page) std::visit(*this, shape);
    }
  }

  void operator()(const LineShape& line) {
    Write("line   ", {line.x1, line.y1, line.x2 - line.x1, line.y2 - line.y1}) << Hex(line.color) << '\n';
  }
  void operator()(const BoxShape& box) {
    Write(box.filled ? "fill   " : "box    ", box.box) << Hex(box.color) << '\n';
  }
  void operator()(const EllipseShape& ellipse) {
    Write("ellipse", ellipse.box) << Hex(ellipse.color) << '\n';
  }
  void operator()(const PictureShape& shape) {
    Write("picture", shape.box) << "of ";
    Millimetres(shape.picture->WidthTwips());
    Millimetres(shape.picture->HeightTwips());
    text_ << '\n';
  }
  void operator()(const TextShape& text) {
    text_ << "text   ";
    Millimetres(text.left);
    Millimetres(text.top);
    text_ << Hex(text.color) << ' ' << text.font.name << ' ' << text.font.size
          << (text.font.bold ? " bold" : "") << (text.font.italic ? " italic" : "")
          << (text.font.underline ? " underlined" : "") << " \"" << text.text << "\"\n";
  }

  std::string Text() const { return text_.str(); }

 private:
  void Millimetres(double twips) {
    constexpr double kThousandths = 1000;
    text_ << std::setw(8) << std::round(twips / kTwipsPerMillimetre * kThousandths) / kThousandths + 0.0
          << ' ';
  }
  std::ostream& Write(const char* kind, const TwipsBox& box) {
    text_ << kind;
    for (const double measure : {box.left, box.top, box.width, box.height}) Millimetres(measure);
    return text_;
  }
  static std::string Hex(Color color) {
    return QColor(color.red, color.green, color.blue).name().toStdString();
  }

  std::ostringstream text_;
};

}  // namespace

void ExpectPicture(const std::string& name, const QImage& seen) {
  const std::string path = MORVANE_SOURCE_DIR "/docs/pictures/" + name + ".png";
  const QImage held(QString::fromStdString(path));
  const QSize whole = held.size().expandedTo(seen.size());
  const QImage picture = OnCanvas(seen, whole);
  const QPolygon different = Difference(OnCanvas(held, whole), picture);
  if (different.size() <= kStrayPixels) return;
  constexpr int kSmallestFile = 0;
  if (TakesOver()) {
    ASSERT_TRUE(seen.save(QString::fromStdString(path), nullptr, kSmallestFile));
    return;
  }
  const QString now = BuildFile(name + ".png");
  const QString marked = BuildFile(name + "-differs.png");
  ASSERT_TRUE(seen.save(now) && Marked(picture, different).save(marked));
  ADD_FAILURE() << 100.0 * static_cast<double>(different.size()) / (whole.width() * whole.height()) << " % ("
                << different.size() << " pixels) differ from " << path << "\n  seen:  " << now.toStdString()
                << "\n  where: " << marked.toStdString();
}

void ExpectSheets(const std::string& name, const std::vector<RecordingPrinter::Job>& jobs) {
  const QString held = QString::fromStdString(MORVANE_SOURCE_DIR "/tests/pictures/sheets/" + name + ".txt");
  const QString now = TakesOver() ? held : BuildFile(name + ".txt");
  QFile file(now);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray::fromStdString(SheetText(jobs).Text()));
  file.close();
  QProcess diff;
  diff.setProcessChannelMode(QProcess::MergedChannels);
  diff.start("diff", {"-u", held, now});
  ASSERT_TRUE(diff.waitForFinished());
  EXPECT_EQ(diff.exitCode(), 0) << diff.readAll().toStdString();
}

}  // namespace Morvane
