#include <QFrame>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <memory>
#include <vector>

#include "platform/controls/bars.h"
#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/control_views.h"
#include "platform/qt/views/menu_builder.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

constexpr int kToolIcon = 24;

bool IsOfTexts(const Toolbar& bar) {
  return !bar.Buttons.empty() && !bar.Buttons.front().key.empty() && bar.Buttons.front().imageKey.empty();
}

class ToolbarView : public WidgetView<Toolbar, QFrame> {
 public:
  ToolbarView(Toolbar& model, QWidget& parent, const ViewContext& context);
  std::vector<QWidget*> FocusStops() override;

 protected:
  void MirrorAppearance() override;

 private:
  std::unique_ptr<QWidget> MakePart(const ToolButton& button);
  void Dress(QToolButton& widget, const ToolButton& button);

  QHBoxLayout row_;
  std::vector<std::unique_ptr<QWidget>> parts_;  // one for each button
};

ToolbarView::ToolbarView(Toolbar& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context), row_(&widget_) {
  const bool ofTexts = IsOfTexts(model);
  row_.setContentsMargins(ofTexts ? QMargins(1, 0, 1, 0) : QMargins());
  row_.setSpacing(1);
  if (ofTexts) widget_.setFrameStyle(QFrame::StyledPanel);
  for (const ToolButton& button : model.Buttons) {
    parts_.push_back(MakePart(button));
    row_.addWidget(parts_.back().get());
  }
  if (!ofTexts) row_.addStretch();
}

std::unique_ptr<QWidget> ToolbarView::MakePart(const ToolButton& button) {
  if (button.key.empty()) {
    auto line = std::make_unique<QFrame>(&widget_);
    line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    return line;
  }
  auto widget = std::make_unique<QToolButton>(&widget_);
  Dress(*widget, button);
  connect(widget.get(), &QToolButton::clicked, this, [this, &button] { Feed(button.Click); });
  Watch(*widget);
  return widget;
}

void ToolbarView::Dress(QToolButton& widget, const ToolButton& button) {
  widget.setAutoRaise(true);
  widget.setFocusPolicy(Qt::TabFocus);
  widget.setToolTip(ToolTip(button.toolTip));
  const QString key = QString::fromStdString(button.key);
  if (button.imageKey.empty()) {
    widget.setText(key);
    widget.setAccessibleName(key);
    widget.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  } else {
    widget.setObjectName(key);
    widget.setIcon(ArtworkIcon(button.imageKey));
    widget.setIconSize({kToolIcon, kToolIcon});
    widget.setAccessibleName(QString::fromStdString(button.toolTip));
  }
  if (!button.menu.empty()) {
    widget.setMenu(new QMenu(&widget));
    widget.setPopupMode(QToolButton::MenuButtonPopup);
    RunChosen(FillMenu(*widget.menu(), button.menu), Context().windows);
  }
}

std::vector<QWidget*> ToolbarView::FocusStops() {
  std::vector<QWidget*> stops;
  for (const auto& part : parts_) {
    if (part->focusPolicy() != Qt::NoFocus) stops.push_back(part.get());
  }
  return stops;
}

void ToolbarView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  for (std::size_t i = 0; i < parts_.size(); ++i) parts_[i]->setEnabled(model_.Buttons[i].enabled);
}

}  // namespace

const ViewMaker kMakeToolbarView = MakeFor<Toolbar, ToolbarView>;

}  // namespace Morvane
