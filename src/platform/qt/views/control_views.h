#pragma once

#include <memory>

#include "platform/qt/views/control_view.h"

namespace Morvane {

// The view of a control, of whatever kind it is, attached to it and placed in `parent`;
// std::logic_error for a kind of control without a view.
std::unique_ptr<ControlView> MakeControlView(Control& model, QWidget& parent, const ViewContext& context);

}  // namespace Morvane
