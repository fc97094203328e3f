#include "platform/qt/picture_box_view.h"

#include <QPainter>

#include "platform/qt/artwork.h"
#include "platform/qt/drawing_painter.h"
#include "platform/qt/small_views.h"
#include "platform/qt/view_text.h"

namespace Morvane {
namespace {

constexpr double kMostKeptPixels = 16e6;
constexpr QColor kPaperEdge(160, 160, 160);

}  // namespace

PictureBoxView::PictureBoxView(PictureBox& model, QWidget& parent, const ViewContext& context)
    : ControlView(model, context), model_(model), widget_(&parent) {}

void PictureBoxView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  MirrorDrawing();
}

void PictureBoxView::MirrorDrawing() {
  kept_ = {};
  widget_.update();
}

bool PictureBoxView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Paint) return ControlView::eventFilter(watched, event);
  Paint();
  return true;
}

bool PictureBoxView::CanKeep() const {
  const double ratio = widget_.devicePixelRatioF();
  return widget_.width() * ratio * widget_.height() * ratio <= kMostKeptPixels;
}

void PictureBoxView::Paint() {
  QPainter painter(&widget_);
  const double ratio = widget_.devicePixelRatioF();
  const QSize pixels = (QSizeF(widget_.size()) * ratio).toSize();
  if (!CanKeep()) {
    kept_ = {};
    Draw(painter);
  } else {
    if (kept_.size() != pixels || kept_.devicePixelRatio() != ratio) {
      kept_ = QPixmap(pixels);
      kept_.setDevicePixelRatio(ratio);
      kept_.fill(Qt::transparent);
      QPainter onPixmap(&kept_);
      Draw(onPixmap);
    }
    painter.drawPixmap(0, 0, kept_);
  }
  PaintKeyboardFocus(widget_, painter);
}

void PictureBoxView::Draw(QPainter& painter) {
  if (model_.PaperBackground()) {
    painter.fillRect(widget_.rect(), Qt::white);
    painter.setPen(kPaperEdge);
    painter.drawRect(QRectF(widget_.rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  }
  if (!model_.ImageKey().empty()) {
    painter.drawPixmap(0, 0, ArtworkPixmap(model_.ImageKey(), widget_.size(), widget_.devicePixelRatioF()));
  }
  painter.scale(1 / ToTwips(1), 1 / ToTwips(1));
  PaintDrawing(painter, model_.Surface.Drawing(), Context().pictures);
}

}  // namespace Morvane
