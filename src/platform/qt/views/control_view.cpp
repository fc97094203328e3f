#include "platform/qt/views/control_view.h"

#include <QPointer>
#include <QScopedValueRollback>

#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

// The extra buttons of a mouse are other buttons, like the middle one.
MouseButton ToMouseButton(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return MouseButton::Left;
  return button == Qt::RightButton ? MouseButton::Right : MouseButton::Middle;
}

int KeyCode(const QKeyEvent& event) {
  if (event.isAutoRepeat() || HoldsModifier(event)) return 0;
  if (IsEnter(event)) return kKeyEnter;
  return event.key() == Qt::Key_Escape ? kKeyEscape : 0;
}

}  // namespace

bool IsEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool HoldsModifier(const QKeyEvent& event) {
  return (event.modifiers() &
          (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
}

void ControlView::Attach() {
  Widget().setObjectName(QString::fromStdString(model_.Name()));
  Watch(Widget());
  model_.OnViewChange = [view = QPointer<ControlView>(this)](ViewChange change) {
    if (view) view->Mirror(change);
  };
  for (const ViewChange change :
       {ViewChange::Appearance, ViewChange::Geometry, ViewChange::Content, ViewChange::Selection}) {
    Mirror(change);
  }
}

void ControlView::Mirror(ViewChange change) {
  const QScopedValueRollback<bool> following(mirroring_, true);
  switch (change) {
    case ViewChange::Geometry:
      return MirrorGeometry();
    case ViewChange::Appearance:
      return MirrorAppearance();
    case ViewChange::Content:
      return MirrorContent();
    case ViewChange::Selection:
      return MirrorSelection();
    case ViewChange::Focus:
      if (!Widget().isAncestorOf(Widget().window()->focusWidget())) Widget().setFocus();
      return;
  }
}

void ControlView::MirrorGeometry() {
  Widget().setGeometry(ToPixels(model_.Left(), model_.Top(), model_.Width(), model_.Height()));
}

void ControlView::MirrorAppearance() {
  QWidget& widget = Widget();
  widget.setToolTip(ToolTip(model_.ToolTipText()));
  widget.setAccessibleName(SpokenText(model_));
  widget.setFont(WidgetFont(model_.GetFont()));
  MirrorPalette(widget);
  if (model_.HandPointer) {
    widget.setCursor(ArtworkPointer("hand"));
    widget.setFocusPolicy(Qt::TabFocus);
  }
  widget.setVisible(model_.Visible());  // last, since it lays out what is in the widget
}

// Black is left to the desktop's own text colour, which is light on a dark desktop.
void ControlView::MirrorPalette(QWidget& widget) const {
  QPalette palette;
  if (model_.ForeColor() != Color()) {
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
      palette.setColor(role, ToQColor(model_.ForeColor()));
    }
  }
  widget.setPalette(palette);
}

void ControlView::Watch(QWidget& part) {
  part.installEventFilter(this);
  part.setMouseTracking(true);
  part.setAttribute(Qt::WA_NoMousePropagation);
}

void ControlView::Feed(const std::function<void()>& action) {
  if (!mirroring_) context_.windows.Dispatch(action);
}

bool ControlView::eventFilter(QObject* watched, QEvent* event) {
  auto* const part = qobject_cast<QWidget*>(watched);
  switch (event->type()) {
    case QEvent::FocusIn:
      Feed([this] { model_.SetFocus(); });
      return false;
    case QEvent::KeyPress:
      return KeyPressed(static_cast<const QKeyEvent&>(*event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return MousePressed(*part, static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
      return MouseReleased(*part, static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseMove:
      MouseMoved(*part, static_cast<const QMouseEvent&>(*event));
      return false;
    default:
      return false;
  }
}

// The control that has the keyboard is asked before the window's default and cancel buttons.
bool ControlView::KeyPressed(const QKeyEvent& event) {
  const int keyCode = KeyCode(event);
  if (keyCode != 0 && model_.KeyDown) {
    Feed([&] { model_.KeyDown(keyCode); });
    return true;
  }
  if (!IsLink() || (event.key() != Qt::Key_Space && !IsEnter(event)) || HoldsModifier(event)) return false;
  if (!event.isAutoRepeat()) Feed([this] { model_.UserClicks(); });
  return true;
}

QPointF ControlView::InEvents(QPointF pixels) const {
  return {ToTwips(pixels.x()), ToTwips(pixels.y())};
}

bool ControlView::MousePressed(QWidget& part, const QMouseEvent& event) {
  pressed_ = event.button() == Qt::LeftButton && event.type() == QEvent::MouseButtonPress;
  const QPointF place = InEvents(part.mapTo(&Widget(), event.position()));
  Feed([&] { model_.MouseDown(ToMouseButton(event.button()), place.x(), place.y()); });
  return false;
}

bool ControlView::MouseReleased(QWidget& part, const QMouseEvent& event) {
  const bool clicked =
      pressed_ && event.button() == Qt::LeftButton && part.rect().contains(event.position().toPoint());
  pressed_ = false;
  if (clicked) Feed([this] { model_.UserClicks(); });
  return false;
}

void ControlView::MouseMoved(QWidget& part, const QMouseEvent& event) {
  const QPointF place = InEvents(part.mapTo(&Widget(), event.position()));
  Feed([&] { model_.MouseMove(place.x(), place.y()); });
}

}  // namespace Morvane
