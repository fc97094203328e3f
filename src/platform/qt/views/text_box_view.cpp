#include "platform/qt/views/text_box_view.h"

namespace Morvane {
namespace {

Qt::Alignment ToQt(Alignment alignment) {
  if (alignment == Alignment::Centre) return Qt::AlignHCenter | Qt::AlignVCenter;
  return (alignment == Alignment::Right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

QString WithLineFeeds(const std::string& text) {
  return QString::fromStdString(text).replace("\r\n", "\n");
}

}  // namespace

LineTextBoxView::LineTextBoxView(TextBox& model, QWidget& parent, const ViewContext& context)
    : ControlView(model, context), model_(model), edit_(&parent) {
  connect(&edit_, &QLineEdit::textChanged, this,
          [this](const QString& text) { Feed([&] { model_.SetText(text.toStdString()); }); });
}

void LineTextBoxView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  edit_.setReadOnly(model_.ReadOnly());
  edit_.setAlignment(ToQt(model_.TextAlignment()));
}

// The same text again would take the cursor to its end while the user types.
void LineTextBoxView::MirrorContent() {
  const QString text = QString::fromStdString(model_.Text());
  if (edit_.text() != text) edit_.setText(text);
}

MultiLineTextBoxView::MultiLineTextBoxView(TextBox& model, QWidget& parent, const ViewContext& context)
    : ControlView(model, context), model_(model), edit_(&parent) {
  edit_.setTabChangesFocus(true);
  connect(&edit_, &QPlainTextEdit::textChanged, this,
          [this] { Feed([&] { model_.SetText(edit_.toPlainText().replace("\n", "\r\n").toStdString()); }); });
  Watch(*edit_.viewport());
}

void MultiLineTextBoxView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  edit_.setReadOnly(model_.ReadOnly());
}

void MultiLineTextBoxView::MirrorContent() {
  const QString text = WithLineFeeds(model_.Text());
  if (edit_.toPlainText() != text) edit_.setPlainText(text);
}

}  // namespace Morvane
