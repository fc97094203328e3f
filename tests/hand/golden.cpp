#include "tests/hand/golden.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPolygon>
#include <QProcess>
#include <cstdlib>

#include "platform/units.h"

namespace Morvane {
namespace {

// Levels of a colour channel, and pixels: room for the roundings of another processor or a mended font
// library. Builds, vector units and locales of one machine agree to the last bit.
constexpr int kSmoothing = 8;
constexpr int kStrayPixels = 3;

QString Here(const std::string& file) {
  return QString::fromStdString(MORVANE_SOURCE_DIR "/" + file);
}

QString InBuild(const std::string& file) {
  QDir().mkpath(MORVANE_PICTURES_SEEN);
  return QString::fromStdString(MORVANE_PICTURES_SEEN "/" + file);
}

bool TakesOver() {
  return qEnvironmentVariableIsSet("MORVANE_TAKE_PICTURES");
}

// What the picture doesn't reach is transparent.
QImage OnCanvas(QImage picture, QSize size) {
  QImage canvas(size, QImage::Format_ARGB32);
  canvas.fill(Qt::transparent);
  picture.setDevicePixelRatio(1);
  QPainter(&canvas).drawImage(0, 0, picture);
  return canvas;
}

bool Differ(QRgb a, QRgb b) {
  for (const int channel : {0, 8, 16, 24}) {
    if (std::abs(static_cast<int>(a >> channel & 0xFFU) - static_cast<int>(b >> channel & 0xFFU)) >
        kSmoothing)
      return true;
  }
  return false;
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

struct SheetText {
  QStringList lines;

  void Write(const char* kind, std::initializer_list<double> twips, Color color, const QString& more = {}) {
    QString text = QString(kind).leftJustified(8);
    for (const double measure : twips) {
      const double mm = static_cast<double>(qRound64(measure / kTwipsPerMillimetre * 1000)) / 1000;
      text += QString::number(mm, 'f', 3).rightJustified(9);
    }
    text += "  " + QColor(color.red, color.green, color.blue).name() + more;
    lines << text;
  }
  void operator()(const LineShape& line) { Write("line", {line.x1, line.y1, line.x2, line.y2}, line.color); }
  void operator()(const BoxShape& shape) {
    const TwipsBox& box = shape.box;
    Write(shape.filled ? "fill" : "box", {box.left, box.top, box.width, box.height}, shape.color);
  }
  void operator()(const EllipseShape& shape) {
    Write("ellipse", {shape.box.left, shape.box.top, shape.box.width, shape.box.height}, shape.color);
  }
  void operator()(const PictureShape& shape) {
    const TwipsBox& box = shape.box;
    const double width = shape.picture->WidthTwips();
    Write("picture", {box.left, box.top, box.width, box.height, width, shape.picture->HeightTwips()}, {});
  }
  void operator()(const TextShape& line) {
    const Font& font = line.font;
    const QString style = QString(font.bold ? " bold" : "") + (font.italic ? " italic" : "") +
                          (font.underline ? " underlined" : "");
    Write("text", {line.left, line.top}, line.color,
          QString(" %1 %2%3 \"%4\"").arg(font.name.c_str()).arg(font.size).arg(style, line.text.c_str()));
  }
};

}  // namespace

void ExpectPicture(const std::string& name, const QImage& seen) {
  const QString path = Here("docs/pictures/" + name + ".png");
  const QImage held(path);
  const QSize whole = held.size().expandedTo(seen.size());
  const QImage picture = OnCanvas(seen, whole);
  const QPolygon different = Difference(OnCanvas(held, whole), picture);
  if (different.size() <= kStrayPixels) return;
  constexpr int kSmallestFile = 0;
  const QString now = TakesOver() ? path : InBuild(name + ".png");
  ASSERT_TRUE(seen.save(now, nullptr, kSmallestFile));
  if (TakesOver()) return;
  const QString marked = InBuild(name + "-differs.png");
  ASSERT_TRUE(Marked(picture, different).save(marked));
  const double percent = 100.0 * static_cast<double>(different.size()) / (whole.width() * whole.height());
  ADD_FAILURE() << percent << " % (" << different.size() << " pixels) differ from " << path.toStdString()
                << "\n  seen:  " << now.toStdString() << "\n  where: " << marked.toStdString();
}

QStringList ShapesAsText(const DrawingList& drawing) {
  SheetText sheet;
  for (const Shape& shape : drawing) std::visit(sheet, shape);
  return sheet.lines;
}

void ExpectText(const std::string& path, const QString& seen) {
  const QString held = Here(path);
  const QString now =
      TakesOver() ? held : InBuild(QString::fromStdString(path).replace('/', '-').toStdString());
  QFile file(now);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(seen.toUtf8());
  file.close();
  QProcess diff;
  diff.setProcessChannelMode(QProcess::MergedChannels);
  diff.start("diff", {"-u", held, now});
  ASSERT_TRUE(diff.waitForFinished());
  EXPECT_EQ(diff.exitCode(), 0) << diff.readAll().toStdString();
}

}  // namespace Morvane
