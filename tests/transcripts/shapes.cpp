#include "shapes.h"

#include <QColor>
#include <cmath>

#include "platform/units.h"

namespace Morvane {
namespace {

const char* const kFooter = "Stampato con 'Morvane' - http://www.morvane.example";

QString Coloured(const QString& shape, Color color) {
  const QString name = QColor(color.red, color.green, color.blue).name();
  return name == "#000000" ? shape : shape + " " + name;
}

// Puts a drawing into words, shape by shape.
class Writer {
 public:
  explicit Writer(int decimals) : decimals_(decimals) {}

  void operator()(const LineShape& line) {
    Add("line " + Pair(line.x1, ",", line.y1) + " to " + Pair(line.x2, ",", line.y2), line.color);
  }
  void operator()(const BoxShape& shape) {
    Add((shape.filled ? "fill " : "box ") + Place(shape.box), shape.color);
  }
  void operator()(const EllipseShape& shape) { Add("ellipse " + Place(shape.box), shape.color); }
  void operator()(const PictureShape& shape) {
    Add("picture " + Place(shape.box) + " of " +
        Pair(shape.picture->WidthTwips(), "x", shape.picture->HeightTwips()));
  }
  void operator()(const TextShape& text) {
    if (!GoesOn(text)) End();
    column_.push_back(text);
  }

  QStringList Lines() {
    End();
    QStringList once = lines_;
    once.removeDuplicates();
    for (QString& line : once)
      if (const auto times = lines_.count(line); times > 1) line += QString(", %1 times").arg(times);
    return once;
  }

 private:
  QString Mm(double twips) const { return QString::number(twips / kTwipsPerMillimetre, 'f', decimals_); }
  QString Pair(double a, const char* between, double b) const { return Mm(a) + between + Mm(b); }
  QString Place(const TwipsBox& box) const {
    return Pair(box.left, ",", box.top) + " " + Pair(box.width, "x", box.height);
  }

  void Add(const QString& shape, Color color = {}) {
    End();
    lines_ << Coloured(shape, color);
  }

  bool GoesOn(const TextShape& text) const {
    constexpr double kRounding = 0.001;  // twips
    if (column_.empty() || text.font != column_.back().font || text.color != column_.back().color)
      return false;
    const double step = text.top - column_.back().top;
    return step > 0 && (column_.size() == 1 || std::abs(step - Step()) < kRounding);
  }
  double Step() const { return column_[1].top - column_[0].top; }

  void End() {
    if (column_.empty()) return;
    const TextShape& first = column_.front();
    QString line = "text " + Pair(first.left, ",", first.top);
    if (column_.size() > 1) line += " down to " + Mm(column_.back().top) + " by " + Mm(Step());
    const Font& font = first.font;
    line += QString(" %1 %2").arg(font.name.c_str()).arg(font.size, 0, 'g', 2 * decimals_) +
            (font.bold ? " bold" : "") + (font.italic ? " italic" : "") +
            (font.underline ? " underlined" : "");
    QStringList words;
    for (const TextShape& text : column_) {
      words << '"' + QString::fromStdString(text.text == kFooter ? "(the footer)" : text.text) + '"';
      if (text.left != first.left) words.back() += " at " + Mm(text.left);
    }
    lines_ << Coloured(line, first.color) + " " + words.join(" | ");
    column_.clear();
  }

  const int decimals_;
  QStringList lines_;
  std::vector<TextShape> column_;  // while it grows
};

}  // namespace

QStringList ShapesAsText(const DrawingList& drawing, int decimals) {
  Writer writer(decimals);
  for (const Shape& shape : drawing) std::visit(writer, shape);
  return writer.Lines();
}

}  // namespace Morvane
