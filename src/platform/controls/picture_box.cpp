#include "platform/controls/picture_box.h"

#include <utility>

namespace Morvane {

PictureBox::PictureBox(Container& parent, std::string name, const TextMetrics& metrics)
    : Control(parent, std::move(name)), Surface(metrics) {
  Surface.OnDrawn = [this] { Notify(ViewChange::Drawing); };
}

bool PictureBox::PerformDragOver(double xTwips, double yTwips) {
  return DragOver && DragOver(EventX(xTwips), EventY(yTwips));
}

void PictureBox::PerformDragLeave() {
  if (DragLeave) DragLeave();
}

void PictureBox::PerformDrop(const std::vector<DroppedPicture>& pictures, double xTwips, double yTwips) {
  if (Drop) Drop(pictures, EventX(xTwips), EventY(yTwips));
}

}  // namespace Morvane
