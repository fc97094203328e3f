#pragma once

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include "platform/controls/picture_box.h"
#include "platform/qt/pictures/qt_picture.h"
#include "platform/qt/views/control_view.h"

namespace Morvane {

// What is drawn on the box is painted once and kept, so that a box that moves within another does not paint
// its content anew. While its size changes, pictures are stretched from the size before; once it stays they
// are sharp.
class PictureBoxView : public ControlView {
 public:
  PictureBoxView(PictureBox& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &widget_; }

 protected:
  void MirrorAppearance() override;
  void MirrorDrawing() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Paint();
  void DragEntered(QDragEnterEvent& event);
  void DragMoved(QDragMoveEvent& event);
  void TakeDrop(QDropEvent& event);
  void Draw(QPainter& painter);
  void DrawEdge(QPainter& painter);
  bool CanKeep() const;
  Pixels PixelsFor(QSize painted);

  PictureBox& model_;
  QWidget widget_;
  QPixmap kept_;
  QSize painted_;
  QTimer settled_;
};

}  // namespace Morvane
