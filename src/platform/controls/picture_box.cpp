#include "platform/controls/picture_box.h"

#include <utility>

namespace Morvane {

PictureBox::PictureBox(Container& parent, std::string name, const TextMetrics& metrics)
    : Control(parent, std::move(name)), Surface(metrics) {
  Surface.OnDrawn = [this] { Notify(ViewChange::Drawing); };
}

}  // namespace Morvane
