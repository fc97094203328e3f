#include "platform/qt/views/control_views.h"

#include <stdexcept>

namespace Morvane {

std::unique_ptr<ControlView> MakeControlView(Control& model, QWidget& parent, const ViewContext& context) {
  static constexpr ViewMaker* kMakers[] = {
      MakeCommandButtonView, MakeLabelView,    MakeTextBoxView, MakeCheckBoxView,   MakeOptionButtonView,
      MakeListBoxView,       MakeNodeTreeView, MakeFrameView,   MakePictureBoxView, MakeImageBoxView,
      MakeToolbarView,       MakeRulingView,   MakeTimerView,
  };
  for (ViewMaker* const make : kMakers) {
    if (auto view = make(model, parent, context)) {
      view->Attach();
      return view;
    }
  }
  throw std::logic_error("no view for the control " + model.Name());
}

}  // namespace Morvane
