#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/control.h"
#include "platform/drawing/drawing_surface.h"
#include "platform/picture.h"

namespace Morvane {

// A picture that comes from another program's window: a file, or the picture alone as a web page gives it.
struct DroppedPicture {
  std::string nativePath;  // of this system; empty without a file
  PicturePtr picture;      // null with a file
};

// A drawing surface in a window: it keeps what is drawn on it, and its mouse events come in the surface's
// scale. It can hold other controls, which move within it.
class PictureBox : public Control, public Container {
 public:
  PictureBox(Container& parent, std::string name, const TextMetrics& metrics)
      : Control(parent, std::move(name)), Surface(metrics) {
    Surface.OnDrawn = [this] { OnViewChange(ViewChange::Content); };
  }

  DrawingSurface Surface;

  // Pictures that are dragged over the box and dropped on it, in the surface's scale; none are accepted
  // without a handler. DragOver tells whether they may be dropped there; DragLeave comes at the end, before
  // Drop, too. Files come in the order of their names.
  std::function<bool(double x, double y)> DragOver = [](double, double) { return false; };
  std::function<void()> DragLeave = [] {};
  std::function<void(const std::vector<DroppedPicture>& pictures, double x, double y)> Drop;

  Form& OwnerForm() override { return Parent().OwnerForm(); }
  // A white sheet behind the drawing; otherwise the window shows through.
  bool PaperBackground = false;

 protected:
  void Resized() override { Surface.SetSize(Width(), Height()); }
};

}  // namespace Morvane
