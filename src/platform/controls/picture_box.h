#pragma once

#include "platform/controls/control.h"
#include "platform/drawing/drawing_surface.h"

namespace Morvane {

// A drawing surface in a window: it keeps what is drawn on it, and its mouse events come in the surface's
// scale. It can hold other controls, which move within it.
class PictureBox : public Control, public Container {
 public:
  PictureBox(Container& parent, std::string name, const TextMetrics& metrics);

  DrawingSurface Surface;

  Form& OwnerForm() override { return Parent().OwnerForm(); }
  bool PaperBackground() const { return paperBackground_; }
  // A white sheet behind the drawing; otherwise the window shows through.
  void SetPaperBackground(bool on) { Assign(paperBackground_, on, ViewChange::Appearance); }

 protected:
  void Resized() override { Surface.SetSize(Width(), Height()); }
  double EventX(double twips) const override { return Surface.UserX(twips); }
  double EventY(double twips) const override { return Surface.UserY(twips); }

 private:
  bool paperBackground_ = false;
};

}  // namespace Morvane
