#include "platform/qt/views/view_text.h"

#include <QFontMetrics>
#include <QTextDocument>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "platform/units.h"

namespace Morvane {
namespace {

constexpr double kSmallestFit = 0.85;
constexpr int kLongestToolTipLine = 60;

}  // namespace

int ToPixels(double twips) {
  return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

QRect ToPixels(double left, double top, double width, double height) {
  const QPoint corner(ToPixels(left), ToPixels(top));
  const QPoint opposite(ToPixels(left + width), ToPixels(top + height));
  return {corner, QSize(opposite.x() - corner.x(), opposite.y() - corner.y())};
}

double ToTwips(double pixels) {
  return pixels * kTwipsPerPixel;
}

QColor ToQColor(Color color) {
  return {color.red, color.green, color.blue};
}

Qt::Alignment ToQt(Alignment alignment) {
  if (alignment == Alignment::Centre) return Qt::AlignHCenter;
  return alignment == Alignment::Right ? Qt::AlignRight : Qt::AlignLeft;
}

QFont WidgetFont(const Font& font) {
  QFont widgetFont(QString::fromStdString(font.name));
  widgetFont.setPixelSize(std::max(1, ToPixels(font.size * kTwipsPerPoint)));
  widgetFont.setBold(font.bold);
  widgetFont.setItalic(font.italic);
  widgetFont.setUnderline(font.underline);
  return widgetFont;
}

QFont FittingFont(QFont font, const QString& text, QSize room, int flags) {
  const int smallest = static_cast<int>(std::ceil(font.pixelSize() * kSmallestFit));
  while (font.pixelSize() > smallest) {
    const QRect space(QPoint(), QSize(room.width(), QWIDGETSIZE_MAX));
    const QSize needed = QFontMetrics(font).boundingRect(space, flags, text).size();
    if (needed.width() <= room.width() && needed.height() <= room.height()) break;
    font.setPixelSize(font.pixelSize() - 1);
  }
  return font;
}

QString ToolTip(const std::string& text) {
  const QString plain = QString::fromStdString(text);
  if (plain.size() <= kLongestToolTipLine && !Qt::mightBeRichText(plain)) return plain;
  return "<qt>" + plain.toHtmlEscaped() + "</qt>";
}

QString WithoutAccessKey(const std::string& caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return QString::fromStdString(plain);
}

QString SpokenText(const Control& control) {
  const QString caption = WithoutAccessKey(control.Caption());
  if (std::any_of(caption.begin(), caption.end(), [](QChar c) { return c.isLetterOrNumber(); }))
    return caption;
  return QString::fromStdString(control.SpokenName().empty() ? control.ToolTipText() : control.SpokenName());
}

}  // namespace Morvane
