#include "platform/qt/views/control_views.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QRegion>
#include <QTimer>
#include <QWidget>

#include "platform/controls/picture_box.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/qt/pictures/picture_cache.h"
#include "platform/qt/views/dragged_pictures.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

constexpr double kMostKeptPixels = 16e6;  // of a moving strip
constexpr int kSettledMilliseconds = 150;
constexpr QColor kPaperEdge(160, 160, 160);

// The picture stays where it comes from: never moved, whatever the other program proposes.
bool Takes(QDropEvent& event) {
  for (const Qt::DropAction action : {Qt::CopyAction, Qt::LinkAction}) {
    if (!event.possibleActions().testFlag(action)) continue;
    event.setDropAction(action);
    return true;
  }
  return false;
}

// What is drawn on the box is painted once and kept, so that a box that moves within another does not paint
// its content anew. While its size changes, pictures are stretched from the size before; once it stays they
// are sharp.
class PictureBoxView : public WidgetView<PictureBox, QWidget> {
 public:
  PictureBoxView(PictureBox& model, QWidget& parent, const ViewContext& context);

 protected:
  void MirrorAppearance() override;
  void MirrorContent() override;
  QPointF InEvents(QPointF pixels) const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Paint();
  void DragEntered(QDragEnterEvent& event);
  void DragMoved(QDragMoveEvent& event);
  void TakeDrop(QDropEvent& event);
  void Draw(QPainter& painter);
  void DrawEdge(QPainter& painter);
  bool CanKeep() const;
  Pixels PixelsFor(QSize painted);

  QPixmap kept_;
  QSize painted_;
  QTimer settled_;
};

PictureBoxView::PictureBoxView(PictureBox& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context) {
  settled_.setSingleShot(true);
  settled_.setInterval(kSettledMilliseconds);
  connect(&settled_, &QTimer::timeout, this, [this] { MirrorContent(); });
}

void PictureBoxView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  widget_.setFocusPolicy(Qt::ClickFocus);
  widget_.setAttribute(Qt::WA_OpaquePaintEvent, model_.PaperBackground);
  widget_.setAcceptDrops(model_.Drop != nullptr);
  MirrorContent();
}

QPointF PictureBoxView::InEvents(QPointF pixels) const {
  return {model_.Surface.UserX(ToTwips(pixels.x())), model_.Surface.UserY(ToTwips(pixels.y()))};
}

void PictureBoxView::MirrorContent() {
  kept_ = {};
  widget_.update();
}

bool PictureBoxView::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Paint:
      Paint();
      return true;
    case QEvent::DragEnter:
      DragEntered(static_cast<QDragEnterEvent&>(*event));
      return true;
    case QEvent::DragMove:
      DragMoved(static_cast<QDragMoveEvent&>(*event));
      return true;
    case QEvent::DragLeave:
      Feed([this] { model_.DragLeave(); });
      return true;
    case QEvent::Drop:
      TakeDrop(static_cast<QDropEvent&>(*event));
      return true;
    default:
      return ControlView::eventFilter(watched, event);
  }
}

// Nothing is dropped behind a window that waits for its answer. What is accepted once is told of each move.
void PictureBoxView::DragEntered(QDragEnterEvent& event) {
  const QWidget* const modal = QApplication::activeModalWidget();
  const bool reachable = modal == nullptr || modal == widget_.window();
  if (!reachable || !Takes(event) || !HoldsPicture(*event.mimeData())) return event.ignore();
  DragMoved(event);
  event.accept();
}

void PictureBoxView::DragMoved(QDragMoveEvent& event) {
  bool welcome = false;
  const QPointF place = InEvents(event.position());
  Feed([&] { welcome = model_.DragOver(place.x(), place.y()); });
  event.setAccepted(welcome && Takes(event));
}

// The other program waits until the event has been taken, so what may ask the user comes after it.
void PictureBoxView::TakeDrop(QDropEvent& event) {
  Feed([this] { model_.DragLeave(); });
  if (!Takes(event)) return event.ignore();
  event.accept();
  Context().windows.Post(
      [view = QPointer(this), pictures = PicturesIn(*event.mimeData()), place = InEvents(event.position())] {
        if (view) view->model_.Drop(Dropped(pictures), place.x(), place.y());
      });
}

// A strip that moves within another box is kept as pixels, so that a step of it draws nothing anew. A page is
// never kept.
bool PictureBoxView::CanKeep() const {
  if (dynamic_cast<const PictureBox*>(&model_.Parent()) == nullptr) return false;
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
}

Pixels PictureBoxView::PixelsFor(QSize painted) {
  const bool resized = !painted_.isEmpty() && painted != painted_;
  painted_ = painted;
  if (resized) settled_.start();
  return settled_.isActive() ? Pixels::AsLastTime : Pixels::Exact;
}

void PictureBoxView::Draw(QPainter& painter) {
  if (model_.PaperBackground) painter.fillRect(widget_.rect(), Qt::white);
  painter.save();
  painter.scale(1 / ToTwips(1), 1 / ToTwips(1));
  PaintDrawing(painter, model_.Surface.Drawing(), Context().painted, PixelsFor(widget_.size()));
  painter.restore();
  if (model_.PaperBackground) DrawEdge(painter);
}

void PictureBoxView::DrawEdge(QPainter& painter) {
  const QRect all = widget_.rect();
  const QRect inner = all.adjusted(1, 1, -1, -1);
  for (const QRect& side : QRegion(all).subtracted(inner)) painter.fillRect(side, kPaperEdge);
}

}  // namespace

const ViewMaker kMakePictureBoxView = MakeFor<PictureBox, PictureBoxView>;

}  // namespace Morvane
