#pragma once

#include <QLabel>

#include "platform/controls/simple_controls.h"
#include "platform/qt/views/control_view.h"

namespace Morvane {

// A label that breaks between words and, for a long path, within one.
class WrappedLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class LabelView : public ControlView {
 public:
  LabelView(Label& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &label_; }

 protected:
  void MirrorAppearance() override;

 private:
  Label& model_;
  WrappedLabel label_;
};

}  // namespace Morvane
