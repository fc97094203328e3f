#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QRegion>
#include <QWidget>

namespace Morvane {

// Where the program's last tool-tip stood: what it uncovers when it goes, nobody had covered.
class LastToolTip : public QObject {
 public:
  LastToolTip() { QCoreApplication::instance()->installEventFilter(this); }

  // A region of the screen, in logical pixels; edges may be rounded.
  bool Held(const QRegion& region) const { return !region.isEmpty() && region.subtracted(place_).isEmpty(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Show:
      case QEvent::Move:
      case QEvent::Resize:
      case QEvent::Hide:
        break;
      default:
        return false;
    }
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->windowType() != Qt::ToolTip) return false;
    if (event->type() == QEvent::Show) place_ = {};
    place_ += widget->geometry().adjusted(-1, -1, 1, 1);
    return false;
  }

 private:
  QRegion place_;
};

}  // namespace Morvane
