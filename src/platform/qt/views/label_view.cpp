#include "platform/qt/views/control_views.h"

#include <QLabel>
#include <QPainter>
#include <QTextOption>

#include "platform/controls/simple_controls.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

constexpr int kNarrowing = 4;  // pixels

// A label that breaks between words and, for a long path, within one. A text that doesn't fit all the same
// is shown without its middle, and whole in the tool-tip.
class WrappedLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class LabelView : public WidgetView<Label, WrappedLabel> {
 public:
  LabelView(Label& model, QWidget& parent, const ViewContext& context);

 protected:
  void MirrorAppearance() override;
};

void WrappedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(FittingFont(font(), text(), size(), Qt::TextWordWrap));
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  QTextOption option(alignment());
  QString shown = text();
  const auto fits = [&] {
    const QSizeF needed = painter.boundingRect(QRectF(rect()), shown, option).size();
    return needed.width() <= width() && needed.height() <= height();
  };
  if (!fits()) option.setWrapMode(QTextOption::WrapAnywhere);
  const QFontMetrics metrics = painter.fontMetrics();
  for (int room = width() * (height() / metrics.height()); room > 0 && !fits(); room -= kNarrowing)
    shown = metrics.elidedText(text(), Qt::ElideMiddle, room);
  if (shown != text()) setToolTip(ToolTip(text().toStdString()));
  painter.drawText(QRectF(rect()), shown, option);
  PaintKeyboardFocus(*this, painter, rect());
}

LabelView::LabelView(Label& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context) {
  widget_.setTextFormat(Qt::PlainText);
}

void LabelView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  widget_.setText(QString::fromStdString(model_.Caption()));
  widget_.setAlignment(ToQt(model_.TextAlignment) | Qt::AlignTop);
  if (const auto back = model_.BackColor) {
    QPalette palette = widget_.palette();
    palette.setColor(QPalette::Window, ToQColor(*back));
    // Dark text on the colour that the designer chose, on a dark desktop too.
    palette.setColor(QPalette::WindowText, ToQColor(model_.ForeColor()));
    widget_.setPalette(palette);
    widget_.setAutoFillBackground(true);
  }
}

}  // namespace

const ViewMaker kMakeLabelView = MakeFor<Label, LabelView>;

}  // namespace Morvane
