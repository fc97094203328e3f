#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

#include "platform/color.h"
#include "platform/controls/simple_controls.h"
#include "platform/font.h"

namespace Morvane {

// Twips to whole logical pixels. Edges are rounded, not sizes, so that neighbours stay neighbours.
int ToPixels(double twips);
QRect ToPixels(double left, double top, double width, double height);
double ToTwips(double pixels);

QColor ToQColor(Color color);
Qt::Alignment ToQt(Alignment alignment);

// The font as the windows were designed: points at 96 pixels to the inch; the toolkit scales the whole.
QFont WidgetFont(const Font& font);

// The font, stepped down by at most 15 % until the text fits into `room` with these flags (Qt::TextFlag).
QFont FittingFont(QFont font, const QString& text, QSize room, int flags);

// Shown as it stands, whatever it holds, with long texts on several lines; empty for an empty text.
QString ToolTip(const std::string& text);

// What a screen reader says: the caption, or its stand-ins where the caption is a mere sign.
QString SpokenText(const Control& control);
QString WithoutAccessKey(const std::string& caption);

}  // namespace Morvane
