#pragma once

#include <QBoxLayout>
#include <QKeyEvent>
#include <QMenuBar>
#include <QObject>
#include <QScrollArea>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "platform/controls/form.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/timer.h"
#include "platform/qt/views/control_view.h"
#include "platform/qt/views/last_tool_tip.h"
#include "platform/qt/views/menu_builder.h"

namespace Morvane {

enum class FormRole { Main, Modal };

// The window of a form, with the views of its controls. The form owns it; the destructor leaves the controls
// alone: they may be gone before.
class FormView : public QObject {
 public:
  FormView(Form& model, FormRole role, const ViewContext& context);
  ~FormView() override;

  // Called when the form is no longer visible, hidden or unloaded.
  std::function<void()> OnHidden;

  QWidget& Window() { return window_; }
  void Show(QWidget* above);
  void Activate();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenuBar();
  void BuildViews(Container& container, QWidget& parent);
  void OrderTabs();
  void KeepTime(Timer& timer);
  void Mirror(ViewChange change);
  void MirrorGeometry();
  void FitScreen(QSize client);
  QPoint PlaceOnScreen() const;
  QSize ClientSize() const;
  QSize RoomOnScreen() const;
  int ScrollBarWidth() const;
  void FollowWindow();
  void GrowBy(int width, int height);
  void OfferSize(QSize room);
  bool WindowEvent(QEvent& event);
  bool ClientEvent(QEvent& event);
  void PaintBackground();
  bool KeyPressed(const QKeyEvent& event);
  CommandButton* ButtonFor(const QKeyEvent& event) const;
  QWidget* FirstStop() const;
  void Moved();
  void WindowStateChanged();
  void Exposed();

  Form& model_;
  const FormRole role_;
  ViewContext context_;
  QWidget window_;
  QVBoxLayout layout_;
  QMenuBar menuBar_;
  QScrollArea scroll_;
  QWidget client_;
  const int designedWidth_;
  bool following_ = false;  // the window as the user resizes it
  MenuActions menuActions_;
  std::vector<std::unique_ptr<ControlView>> views_;
  std::deque<QTimer> clocks_;
  QRegion uncovered_;  // told just before the window is exposed
  const LastToolTip lastToolTip_;
};

}  // namespace Morvane
