#include "platform/qt/views/control_views.h"

#include <QGroupBox>
#include <QPainter>
#include <QPixmap>
#include <QStyleOptionFocusRect>
#include <algorithm>

#include "platform/controls/simple_controls.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {

void PaintKeyboardFocus(QWidget& widget, QPainter& painter, const QRect& around) {
  if (!widget.hasFocus()) return;
  QStyleOptionFocusRect focus;
  focus.initFrom(&widget);
  focus.rect = around;
  widget.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, &widget);
}

namespace {

constexpr int kCaptionIndent = 4;
constexpr int kCaptionGap = 2;

// A group box drawn as it was designed: a line around, the caption in its upper side, room from corner to
// corner.
class TitledFrame : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class FrameView : public WidgetView<Frame, TitledFrame> {
 public:
  using WidgetView::WidgetView;

 protected:
  void MirrorAppearance() override;
};

class ImageBoxView : public WidgetView<ImageBox, QWidget> {
 public:
  using WidgetView::WidgetView;

 protected:
  void MirrorAppearance() override;
  void MirrorContent() override { widget_.update(); }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Paint();
};

class RulingView : public WidgetView<Ruling, QWidget> {
 public:
  using WidgetView::WidgetView;

 protected:
  void MirrorGeometry() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
};

void TitledFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const int room = width() - 2 * (kCaptionIndent + kCaptionGap);
  painter.setFont(FittingFont(font(), title(), QSize(room, height()), Qt::TextShowMnemonic));
  const QFontMetrics metrics = painter.fontMetrics();
  const int lineTop = title().isEmpty() ? 0 : metrics.height() / 2;
  if (!title().isEmpty()) {
    const int captionWidth = std::min(room, metrics.size(Qt::TextShowMnemonic, title()).width());
    const QRect caption(kCaptionIndent + kCaptionGap, 0, captionWidth, metrics.height());
    style()->drawItemText(&painter, caption, Qt::AlignLeft | Qt::TextShowMnemonic, palette(), isEnabled(),
                          title(), QPalette::WindowText);
    painter.setClipRegion(QRegion(rect()) - caption.adjusted(-kCaptionGap, 0, kCaptionGap, 0));
  }
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(QRectF(0.5, lineTop + 0.5, width() - 1, height() - lineTop - 1));
}

void FrameView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  widget_.setTitle(QString::fromStdString(Model().Caption()));
}

void ImageBoxView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  widget_.update();
}

bool ImageBoxView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Paint) return ControlView::eventFilter(watched, event);
  Paint();
  return true;
}

void ImageBoxView::Paint() {
  QPainter painter(&widget_);
  if (!model_.ImageKey().empty()) {
    painter.drawPixmap(0, 0, ArtworkPixmap(model_.ImageKey(), widget_.size(), widget_.devicePixelRatioF()));
  }
  if (model_.GetPicture()) {
    painter.save();
    painter.scale(1 / ToTwips(1), 1 / ToTwips(1));
    const TwipsBox whole{0, 0, ToTwips(widget_.width()), ToTwips(widget_.height())};
    PaintDrawing(painter, {PictureShape{whole, model_.GetPicture()}}, Context().painted);
    painter.restore();
  }
  PaintKeyboardFocus(widget_, painter, widget_.rect());
}

// A line has no thickness of its own.
void RulingView::MirrorGeometry() {
  ControlView::MirrorGeometry();
  widget_.resize(widget_.size().expandedTo({1, 1}));
}

bool RulingView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Paint) return ControlView::eventFilter(watched, event);
  QPainter painter(&widget_);
  const QColor color = widget_.palette().color(QPalette::Mid);
  if (std::min(widget_.width(), widget_.height()) <= 2) {
    painter.fillRect(widget_.rect(), color);
  } else {
    painter.setPen(color);
    painter.drawRect(QRectF(widget_.rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  }
  return true;
}

}  // namespace

const ViewMaker kMakeFrameView = MakeFor<Frame, FrameView>;
const ViewMaker kMakeImageBoxView = MakeFor<ImageBox, ImageBoxView>;
const ViewMaker kMakeRulingView = MakeFor<Ruling, RulingView>;

}  // namespace Morvane
