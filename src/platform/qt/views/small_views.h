#pragma once

#include <QGroupBox>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include "platform/controls/simple_controls.h"
#include "platform/qt/views/control_view.h"

namespace Morvane {

// A group box drawn as it was designed: a line around, the caption in its upper side, room from corner to
// corner.
class TitledFrame : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class FrameView : public ControlView {
 public:
  FrameView(Frame& model, QWidget& parent, const ViewContext& context)
      : ControlView(model, context), frame_(&parent) {}

  QWidget* Widget() override { return &frame_; }

 protected:
  void MirrorAppearance() override;

 private:
  TitledFrame frame_;
};

class ImageBoxView : public ControlView {
 public:
  ImageBoxView(ImageBox& model, QWidget& parent, const ViewContext& context)
      : ControlView(model, context), model_(model), widget_(&parent) {}

  QWidget* Widget() override { return &widget_; }

 protected:
  void MirrorAppearance() override;
  void MirrorContent() override { widget_.update(); }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Paint();

  ImageBox& model_;
  QWidget widget_;
};

class RulingView : public ControlView {
 public:
  RulingView(Ruling& model, QWidget& parent, const ViewContext& context)
      : ControlView(model, context), widget_(&parent) {}

  QWidget* Widget() override { return &widget_; }

 protected:
  void MirrorGeometry() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget widget_;
};

// Each tick ends before the next begins, also when one shows a message.
class TimerView : public ControlView {
 public:
  TimerView(Timer& model, const ViewContext& context);

  QWidget* Widget() override { return nullptr; }
  std::vector<QWidget*> FocusStops() override { return {}; }

 protected:
  void MirrorContent() override;

 private:
  Timer& model_;
  QTimer timer_;
  bool ticking_ = false;
};

// The rectangle around a picture that has the keyboard.
void PaintKeyboardFocus(QWidget& widget, QPainter& painter);

}  // namespace Morvane
