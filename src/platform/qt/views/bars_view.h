#pragma once

#include <QFrame>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/bars.h"
#include "platform/qt/views/control_view.h"

namespace Morvane {

class ToolbarView : public ControlView {
 public:
  ToolbarView(Toolbar& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &bar_; }
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

  Toolbar& model_;
  QWidget bar_;
  QHBoxLayout row_;
  std::vector<Part> parts_;
};

class StatusBarView : public ControlView {
 public:
  StatusBarView(StatusBar& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &bar_; }
  std::vector<QWidget*> FocusStops() override;

 private:
  void AddPanel(std::size_t index);

  StatusBar& model_;
  QFrame bar_;
  QHBoxLayout row_;
  std::vector<std::unique_ptr<QToolButton>> panels_;
};

}  // namespace Morvane
