#include "platform/qt/views/control_views.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include "platform/controls/simple_controls.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

class LineTextBoxView : public WidgetView<TextBox, QLineEdit> {
 public:
  LineTextBoxView(TextBox& model, QWidget& parent, const ViewContext& context);

 protected:
  void MirrorAppearance() override;
  void MirrorContent() override;
};

// Lines end with CR LF in the control.
class MultiLineTextBoxView : public WidgetView<TextBox, QPlainTextEdit> {
 public:
  MultiLineTextBoxView(TextBox& model, QWidget& parent, const ViewContext& context);

 protected:
  void MirrorAppearance() override;
  void MirrorContent() override;
};

LineTextBoxView::LineTextBoxView(TextBox& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context) {
  connect(&widget_, &QLineEdit::textChanged, this,
          [this](const QString& text) { Feed([&] { model_.SetText(text.toStdString()); }); });
}

void LineTextBoxView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  widget_.setReadOnly(model_.ReadOnly);
  widget_.setAlignment(ToQt(model_.TextAlignment) | Qt::AlignVCenter);
}

// The same text again would take the cursor to its end while the user types.
void LineTextBoxView::MirrorContent() {
  const QString text = QString::fromStdString(model_.Text());
  if (widget_.text() != text) widget_.setText(text);
}

MultiLineTextBoxView::MultiLineTextBoxView(TextBox& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context) {
  connect(&widget_, &QPlainTextEdit::textChanged, this, [this] {
    Feed([&] { model_.SetText(widget_.toPlainText().replace("\n", "\r\n").toStdString()); });
  });
  Watch(*widget_.viewport());
}

void MultiLineTextBoxView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  widget_.setReadOnly(model_.ReadOnly);
}

void MultiLineTextBoxView::MirrorContent() {
  const QString text = QString::fromStdString(model_.Text()).replace("\r\n", "\n");
  if (widget_.toPlainText() != text) widget_.setPlainText(text);
}

}  // namespace

const ViewMaker kMakeTextBoxView = [](Control& model, QWidget& parent, const ViewContext& context) {
  const auto* const box = dynamic_cast<TextBox*>(&model);
  return box != nullptr && box->MultiLine ? MakeFor<TextBox, MultiLineTextBoxView>(model, parent, context)
                                          : MakeFor<TextBox, LineTextBoxView>(model, parent, context);
};

}  // namespace Morvane
