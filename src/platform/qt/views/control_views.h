#pragma once

#include <memory>

#include "platform/qt/views/control_view.h"

class QPainter;

namespace Morvane {

// The view of a control, of whatever kind it is, attached to it and placed in `parent`;
// std::logic_error for a kind of control without a view.
std::unique_ptr<ControlView> MakeControlView(Control& model, QWidget& parent, const ViewContext& context);

// What the views' own sources offer: the view of one kind of control, null for another kind.
using ViewMaker = std::unique_ptr<ControlView> (*)(Control& model, QWidget& parent,
                                                   const ViewContext& context);
extern const ViewMaker kMakeCheckBoxView, kMakeCommandButtonView, kMakeFrameView, kMakeImageBoxView,
    kMakeLabelView, kMakeListBoxView, kMakeNodeTreeView, kMakeOptionButtonView, kMakePictureBoxView,
    kMakeRulingView, kMakeTextBoxView, kMakeToolbarView;

template <typename Model, typename View>
std::unique_ptr<ControlView> MakeFor(Control& model, QWidget& parent, const ViewContext& context) {
  auto* const known = dynamic_cast<Model*>(&model);
  if (known == nullptr) return nullptr;
  return std::make_unique<View>(*known, parent, context);
}

// The dotted rectangle within a widget, where it has the keyboard.
void PaintKeyboardFocus(QWidget& widget, QPainter& painter, const QRect& around);

}  // namespace Morvane
