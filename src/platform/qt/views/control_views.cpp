#include "platform/qt/views/control_views.h"

#include <stdexcept>

#include "platform/qt/views/bars_view.h"
#include "platform/qt/views/button_views.h"
#include "platform/qt/views/label_view.h"
#include "platform/qt/views/list_box_view.h"
#include "platform/qt/views/node_tree_view.h"
#include "platform/qt/views/picture_box_view.h"
#include "platform/qt/views/small_views.h"
#include "platform/qt/views/text_box_view.h"

namespace Morvane {
namespace {

template <typename Model, typename View>
std::unique_ptr<ControlView> MakeFor(Control& model, QWidget& parent, const ViewContext& context) {
  auto* const known = dynamic_cast<Model*>(&model);
  if (known == nullptr) return nullptr;
  return std::make_unique<View>(*known, parent, context);
}

std::unique_ptr<ControlView> MakeTextBoxView(Control& model, QWidget& parent, const ViewContext& context) {
  const auto* const box = dynamic_cast<TextBox*>(&model);
  if (box == nullptr) return nullptr;
  return box->MultiLine() ? MakeFor<TextBox, MultiLineTextBoxView>(model, parent, context)
                          : MakeFor<TextBox, LineTextBoxView>(model, parent, context);
}

std::unique_ptr<ControlView> MakeTimerView(Control& model, QWidget&, const ViewContext& context) {
  auto* const timer = dynamic_cast<Timer*>(&model);
  return timer == nullptr ? nullptr : std::make_unique<TimerView>(*timer, context);
}

}  // namespace

std::unique_ptr<ControlView> MakeControlView(Control& model, QWidget& parent, const ViewContext& context) {
  static constexpr std::initializer_list<decltype(&MakeTimerView)> kMakers = {
      MakeFor<CommandButton, CommandButtonView>,
      MakeFor<Label, LabelView>,
      MakeTextBoxView,
      MakeFor<CheckBox, CheckBoxView>,
      MakeFor<OptionButton, OptionButtonView>,
      MakeFor<ListBox, ListBoxView>,
      MakeFor<TreeView, NodeTreeView>,
      MakeFor<Frame, FrameView>,
      MakeFor<PictureBox, PictureBoxView>,
      MakeFor<ImageBox, ImageBoxView>,
      MakeFor<Toolbar, ToolbarView>,
      MakeFor<StatusBar, StatusBarView>,
      MakeFor<Ruling, RulingView>,
      MakeTimerView,
  };
  for (const auto make : kMakers) {
    if (auto view = make(model, parent, context)) {
      view->Attach();
      return view;
    }
  }
  throw std::logic_error("no view for the control " + model.Name());
}

}  // namespace Morvane
