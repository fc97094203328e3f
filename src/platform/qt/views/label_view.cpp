#include "platform/qt/views/control_views.h"

#include <QLabel>
#include <QPainter>
#include <QTextOption>

#include "platform/controls/simple_controls.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

// A label that breaks between words and, for a long path, within one.
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
  const int flags = Qt::TextWordWrap;
  painter.setFont(FittingFont(font(), text(), size(), flags));
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  QTextOption option(alignment());
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  painter.drawText(QRectF(rect()), text(), option);
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
