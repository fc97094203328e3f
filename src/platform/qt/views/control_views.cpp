#include "platform/qt/views/control_views.h"

#include <stdexcept>

namespace Morvane {

std::unique_ptr<ControlView> MakeControlView(Control& model, QWidget& parent, const ViewContext& context) {
  for (const ViewMaker make : {kMakeCommandButtonView, kMakeLabelView, kMakeTextBoxView, kMakeCheckBoxView,
                               kMakeOptionButtonView, kMakeListBoxView, kMakeNodeTreeView, kMakeFrameView,
                               kMakePictureBoxView, kMakeImageBoxView, kMakeToolbarView, kMakeRulingView}) {
    if (auto view = make(model, parent, context)) {
      view->Attach();
      return view;
    }
  }
  throw std::logic_error("no view for the control " + model.Name());
}

}  // namespace Morvane
