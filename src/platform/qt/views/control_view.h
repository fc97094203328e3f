#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <QObject>
#include <QWidget>
#include <functional>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/window_system.h"

namespace Morvane {

struct PaintCache;

// What every view needs: where the user's actions go, and what was painted before.
struct ViewContext {
  WindowSystem& windows;
  PaintCache& painted;
};

bool IsEnter(const QKeyEvent& event);
// Ctrl, Alt, Shift or the desktop's own key: no key of the program's.
bool HoldsModifier(const QKeyEvent& event);

// Mirrors one control to a widget, and feeds what the user does back to it. The destructor leaves the control
// alone: it may be gone before its view.
class ControlView : public QObject {
 public:
  ControlView(Control& model, const ViewContext& context) : model_(model), context_(context) {}

  virtual QWidget& Widget() = 0;
  // What the Tab key stops at, in order.
  virtual std::vector<QWidget*> FocusStops() { return {&Widget()}; }

  // A picture or label to click, by Enter or Space, too, where it has the keyboard.
  bool IsLink() const { return model_.HandPointer; }

  // Shows the control as it is and follows its changes. Called once, after construction.
  void Attach();

 protected:
  // What changes in the widget meanwhile comes from the control and is not fed back to it.
  void Mirror(ViewChange change);
  virtual void MirrorGeometry();
  virtual void MirrorAppearance();
  virtual void MirrorContent() {}
  virtual void MirrorSelection() {}

  // What came from the user through the widget. True takes the event away from the widget.
  bool KeyPressed(const QKeyEvent& event);
  virtual bool MousePressed(QWidget& part, const QMouseEvent& event);
  virtual bool MouseReleased(QWidget& part, const QMouseEvent& event);

  // A place of the widget as the control's events give it.
  virtual QPointF InEvents(QPointF pixels) const;

  // Reports mouse and focus of a part of the widget too.
  void Watch(QWidget& part);
  bool eventFilter(QObject* watched, QEvent* event) override;

  // Runs an action of the user under the program's guard; nothing while the widget only follows the control.
  void Feed(const std::function<void()>& action);
  const ViewContext& Context() const { return context_; }
  Control& Model() const { return model_; }

 private:
  void MirrorPalette(QWidget& widget) const;
  void MouseMoved(QWidget& part, const QMouseEvent& event);

  Control& model_;
  ViewContext context_;
  bool mirroring_ = false;
  bool pressed_ = false;
};

// The view of one kind of control by one kind of widget.
template <typename Kind, typename Part>
class WidgetView : public ControlView {
 public:
  WidgetView(Kind& model, QWidget& parent, const ViewContext& context)
      : ControlView(model, context), model_(model), widget_(&parent) {}

  QWidget& Widget() override { return widget_; }

 protected:
  Kind& model_;
  Part widget_;
};

}  // namespace Morvane
