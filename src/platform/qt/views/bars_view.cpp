#include "platform/qt/views/control_views.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/bars.h"
#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

constexpr int kToolIcon = 24;

class ToolbarView : public WidgetView<Toolbar, QWidget> {
 public:
  ToolbarView(Toolbar& model, QWidget& parent, const ViewContext& context);
  std::vector<QWidget*> FocusStops() override;

 protected:
  void MirrorAppearance() override;
  void MirrorContent() override;

 private:
  struct Part {
    std::string key;
    std::unique_ptr<QToolButton> button;  // null for a separator
    std::unique_ptr<QFrame> line;
    std::unique_ptr<QMenu> menu;
  };

  void AddButton(Part& part, const ToolButton& button);
  void FillMenu(Part& part, const ToolButton& button);

  QHBoxLayout row_;
  std::vector<Part> parts_;
};

class StatusBarView : public WidgetView<StatusBar, QFrame> {
 public:
  StatusBarView(StatusBar& model, QWidget& parent, const ViewContext& context);
  std::vector<QWidget*> FocusStops() override;

 private:
  void AddPanel(std::size_t index);

  QHBoxLayout row_;
  std::vector<std::unique_ptr<QToolButton>> panels_;
};

ToolbarView::ToolbarView(Toolbar& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context), row_(&widget_) {
  row_.setContentsMargins({});
  row_.setSpacing(1);
  parts_.reserve(model_.Buttons.size());
  for (const ToolButton& button : model_.Buttons) {
    Part& part = parts_.emplace_back();
    part.key = button.key;
    if (button.style == ToolStyle::Separator) {
      part.line = std::make_unique<QFrame>(&widget_);
      part.line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
      row_.addWidget(part.line.get());
    } else {
      AddButton(part, button);
    }
  }
  row_.addStretch();
}

void ToolbarView::AddButton(Part& part, const ToolButton& button) {
  part.button = std::make_unique<QToolButton>(&widget_);
  QToolButton& widget = *part.button;
  widget.setObjectName(QString::fromStdString(button.key));
  widget.setAutoRaise(true);
  widget.setIconSize({kToolIcon, kToolIcon});
  widget.setIcon(ArtworkIcon(button.imageKey));
  widget.setToolTip(ToolTip(button.toolTip));
  widget.setAccessibleName(QString::fromStdString(button.toolTip));
  widget.setFocusPolicy(Qt::TabFocus);
  if (button.style == ToolStyle::DropDown) {
    part.menu = std::make_unique<QMenu>();
    widget.setMenu(part.menu.get());
    widget.setPopupMode(QToolButton::MenuButtonPopup);
  }
  connect(&widget, &QToolButton::clicked, this,
          [this, key = button.key] { Feed([&] { model_.UserPresses(key); }); });
  Watch(widget);
  row_.addWidget(&widget);
}

std::vector<QWidget*> ToolbarView::FocusStops() {
  std::vector<QWidget*> stops;
  for (const Part& part : parts_) {
    if (part.button) stops.push_back(part.button.get());
  }
  return stops;
}

void ToolbarView::MirrorAppearance() {
  ControlView::MirrorAppearance();
  for (const Part& part : parts_) {
    if (part.button) part.button->setEnabled(model_.Button(part.key).enabled);
  }
}

void ToolbarView::MirrorContent() {
  for (Part& part : parts_) {
    if (part.menu) FillMenu(part, model_.Button(part.key));
  }
}

void ToolbarView::FillMenu(Part& part, const ToolButton& button) {
  part.menu->clear();
  for (const std::string& text : button.menu) {
    part.menu->addAction(QString::fromStdString(text), this,
                         [this, text] { Feed([&] { model_.UserPicks(text); }); });
  }
}

StatusBarView::StatusBarView(StatusBar& model, QWidget& parent, const ViewContext& context)
    : WidgetView(model, parent, context), row_(&widget_) {
  widget_.setFrameStyle(QFrame::StyledPanel);
  row_.setContentsMargins(1, 0, 1, 0);
  row_.setSpacing(1);
  for (std::size_t index = 0; index < model_.Panels.size(); ++index) AddPanel(index);
}

void StatusBarView::AddPanel(std::size_t index) {
  const StatusPanel& panel = model_.Panels[index];
  panels_.push_back(std::make_unique<QToolButton>(&widget_));
  QToolButton& button = *panels_.back();
  button.setAutoRaise(true);
  button.setText(QString::fromStdString(panel.text));
  button.setToolTip(ToolTip(panel.toolTip));
  button.setAccessibleName(QString::fromStdString(panel.text));
  button.setFocusPolicy(Qt::TabFocus);
  button.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  connect(&button, &QToolButton::clicked, this,
          [this, index] { Feed([&] { model_.UserClicks(model_.Panels[index]); }); });
  Watch(button);
  row_.addWidget(&button);
}

std::vector<QWidget*> StatusBarView::FocusStops() {
  std::vector<QWidget*> stops;
  for (const auto& panel : panels_) stops.push_back(panel.get());
  return stops;
}

}  // namespace

std::unique_ptr<ControlView> MakeToolbarView(Control& model, QWidget& parent, const ViewContext& context) {
  return MakeFor<Toolbar, ToolbarView>(model, parent, context);
}

std::unique_ptr<ControlView> MakeStatusBarView(Control& model, QWidget& parent, const ViewContext& context) {
  return MakeFor<StatusBar, StatusBarView>(model, parent, context);
}

}  // namespace Morvane
