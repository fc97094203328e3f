#include "platform/qt/views/label_view.h"

#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QTextOption>

#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

Qt::Alignment ToQt(Alignment alignment) {
  if (alignment == Alignment::Centre) return Qt::AlignHCenter | Qt::AlignTop;
  return (alignment == Alignment::Right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignTop;
}

}  // namespace

void WrappedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const int flags = Qt::TextWordWrap;
  painter.setFont(FittingFont(font(), text(), size(), flags));
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  QTextOption option(alignment());
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  painter.drawText(QRectF(rect()), text(), option);
  if (!hasFocus()) return;
  QStyleOptionFocusRect focus;
  focus.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

LabelView::LabelView(Label& model, QWidget& parent, const ViewContext& context)
    : ControlView(model, context), model_(model), label_(&parent) {
  label_.setTextFormat(Qt::PlainText);
}

void LabelView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  label_.setText(QString::fromStdString(model_.Caption()));
  label_.setAlignment(ToQt(model_.TextAlignment()));
  if (const auto back = model_.BackColor()) {
    QPalette palette = label_.palette();
    palette.setColor(QPalette::Window, ToQColor(*back));
    // Dark text on the colour that the designer chose, on a dark desktop too.
    palette.setColor(QPalette::WindowText, ToQColor(model_.ForeColor()));
    label_.setPalette(palette);
    label_.setAutoFillBackground(true);
  }
}

}  // namespace Morvane
