#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

#include "platform/controls/simple_controls.h"
#include "platform/qt/views/control_view.h"

namespace Morvane {

class LineTextBoxView : public ControlView {
 public:
  LineTextBoxView(TextBox& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &edit_; }

 protected:
  void MirrorAppearance() override;
  void MirrorContent() override;

 private:
  TextBox& model_;
  QLineEdit edit_;
};

// Lines end with CR LF in the control.
class MultiLineTextBoxView : public ControlView {
 public:
  MultiLineTextBoxView(TextBox& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &edit_; }

 protected:
  void MirrorAppearance() override;
  void MirrorContent() override;

 private:
  TextBox& model_;
  QPlainTextEdit edit_;
};

}  // namespace Morvane
