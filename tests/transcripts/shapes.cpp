#include "shapes.h"

#include <QColor>
#include <QHash>
#include <QRegularExpression>
#include <cmath>

#include "platform/units.h"

namespace Morvane {
namespace {

constexpr double kRounding = 0.0011;  // mm

QString Mm(double twips) {
  return QString::number(static_cast<double>(qRound64(twips / kTwipsPerMillimetre * 1000)) / 1000, 'f', 3);
}

QString Pair(double a, const char* between, double b) {
  return Mm(a) + between + Mm(b);
}

QString Place(const TwipsBox& box) {
  return Pair(box.left, ",", box.top) + " " + Pair(box.width, "x", box.height);
}

QString Coloured(const QString& shape, Color color) {
  const QString name = QColor(color.red, color.green, color.blue).name();
  return name == "#000000" ? shape : shape + " " + name;
}

struct Writer {
  QString operator()(const LineShape& line) const {
    return Coloured("line " + Pair(line.x1, ",", line.y1) + " to " + Pair(line.x2, ",", line.y2), line.color);
  }
  QString operator()(const BoxShape& shape) const {
    return Coloured((shape.filled ? "fill " : "box ") + Place(shape.box), shape.color);
  }
  QString operator()(const EllipseShape& shape) const {
    return Coloured("ellipse " + Place(shape.box), shape.color);
  }
  QString operator()(const PictureShape& shape) const {
    return "picture " + Place(shape.box) + " of " +
           Pair(shape.picture->WidthTwips(), "x", shape.picture->HeightTwips());
  }
  QString operator()(const TextShape& text) const {
    const Font& font = text.font;
    const QString style = QString(font.bold ? " bold" : "") + (font.italic ? " italic" : "") +
                          (font.underline ? " underlined" : "");
    const QString name = QString("%1 %2").arg(font.name.c_str()).arg(font.size) + style;
    return "text " + Pair(text.left, ",", text.top) + " " + Coloured(name, text.color) + " \"" +
           QString::fromStdString(text.text) + "\"";
  }
};

struct Text {
  double left = 0, top = 0;
  QString font, words;
};

// A column while it grows.
class Column {
 public:
  bool Takes(const Text& text) {
    if (texts_.isEmpty()) return Add(text);
    const Text& first = texts_.front();
    if (text.font != first.font) return false;
    const auto count = static_cast<double>(texts_.size());
    const double step = (text.top - first.top) / count;
    if (step <= 0) return false;
    for (qsizetype i = 1; i < texts_.size(); ++i)
      if (std::abs(texts_[i].top - first.top - step * static_cast<double>(i)) > kRounding) return false;
    return Add(text);
  }

  QString Written() const {
    const Text& first = texts_.front();
    const Text& last = texts_.back();
    QString head = QString("text %1,%2").arg(first.left, 0, 'f', 3).arg(first.top, 0, 'f', 3);
    if (texts_.size() > 1) {
      head += QString(" down to %1 by %2")
                  .arg(last.top, 0, 'f', 3)
                  .arg((last.top - first.top) / static_cast<double>(texts_.size() - 1), 0, 'f', 3);
    }
    QStringList words;
    for (const Text& text : texts_) {
      const bool isAside = std::abs(text.left - first.left) >= kRounding;
      words << '"' + text.words + '"' + (isAside ? QString(" at %1").arg(text.left, 0, 'f', 3) : "");
    }
    return head + " " + first.font + " " + words.join(" | ");
  }
  bool IsEmpty() const { return texts_.isEmpty(); }

 private:
  bool Add(const Text& text) {
    texts_ << text;
    return true;
  }
  QList<Text> texts_;
};

}  // namespace

QStringList ShapesAsText(const DrawingList& drawing) {
  QStringList lines;
  for (const Shape& shape : drawing) lines << std::visit(Writer{}, shape);
  return lines;
}

bool IsDrawing(const QStringList& lines) {
  static const QRegularExpression shape("^(line|box|fill|ellipse|picture|text) -?\\d+\\.\\d{3},");
  return !lines.isEmpty() && shape.match(lines.front()).hasMatch();
}

QStringList Folded(const QStringList& shapes) {
  static const QRegularExpression written("^text (-?[\\d.]+),(-?[\\d.]+) ([^\"]+) \"(.*)\"$");
  QHash<QString, int> times;
  for (const QString& shape : shapes) ++times[shape];
  QStringList folded;
  Column column;
  const auto end = [&] {
    if (!column.IsEmpty()) folded << column.Written();
    column = {};
  };
  for (const QString& shape : shapes) {
    const int count = std::exchange(times[shape], 0);
    if (count == 0) continue;
    const QRegularExpressionMatch match = written.match(shape);
    if (!match.hasMatch() || count > 1) {
      end();
      folded << shape + (count > 1 ? QString(", %1 times").arg(count) : "");
      continue;
    }
    const Text text{match.captured(1).toDouble(), match.captured(2).toDouble(), match.captured(3),
                    match.captured(4)};
    if (!column.Takes(text)) {
      end();
      column.Takes(text);
    }
  }
  end();
  return folded;
}

}  // namespace Morvane
