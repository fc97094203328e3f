#include "platform/qt/views/form_view.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>

#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/control_views.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

Qt::WindowFlags FlagsFor(const Form& form, FormRole role) {
  Qt::WindowFlags flags =
      Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  flags |= role == FormRole::Main ? Qt::Window | Qt::WindowMinimizeButtonHint : Qt::Dialog;
  if (form.Resizable()) flags |= Qt::WindowMaximizeButtonHint;
  return flags;
}

}  // namespace

FormView::FormView(Form& model, FormRole role, const ViewContext& context)
    : model_(model),
      role_(role),
      context_(context),
      window_(nullptr, FlagsFor(model, role)),
      layout_(&window_),
      scroll_(&window_) {
  window_.setObjectName(QString::fromStdString(model.Name()));
  window_.installEventFilter(this);
  client_.installEventFilter(this);
  client_.setMouseTracking(true);
  layout_.setContentsMargins(0, 0, 0, 0);
  layout_.addWidget(&scroll_);
  scroll_.setFrameShape(QFrame::NoFrame);
  scroll_.setFocusPolicy(Qt::NoFocus);
  scroll_.setWidget(&client_);
  scroll_.setWidgetResizable(model.Resizable());
  if (role_ == FormRole::Modal) window_.setWindowModality(Qt::ApplicationModal);
  BuildMenuBar();
  BuildViews(model_, client_);
  OrderTabs();
  MirrorAppearance();
  MirrorGeometry();
  model_.OnViewChange = [view = QPointer<FormView>(this)](ViewChange change) {
    if (view) view->Mirror(change);
  };
}

// What is in a container goes before it, and all of it before the window.
FormView::~FormView() {
  while (!views_.empty()) views_.pop_back();
  scroll_.takeWidget();
}

void FormView::BuildMenuBar() {
  menuBar_.setVisible(!model_.MenuBar.empty());
  if (model_.MenuBar.empty()) return;
  menuBar_.setNativeMenuBar(false);
  layout_.setMenuBar(&menuBar_);
  menuActions_ = FillMenuBar(menuBar_, model_.MenuBar, context_.windows);
}

void FormView::BuildViews(Container& container, QWidget& parent) {
  for (Control* const control : container.Children()) {
    views_.push_back(MakeControlView(*control, parent, context_));
    QWidget* const widget = views_.back()->Widget();
    if (auto* const inner = dynamic_cast<Container*>(control)) BuildViews(*inner, *widget);
  }
}

void FormView::OrderTabs() {
  QWidget* previous = nullptr;
  for (const auto& view : views_) {
    for (QWidget* const stop : view->FocusStops()) {
      if (previous != nullptr) QWidget::setTabOrder(previous, stop);
      previous = stop;
    }
  }
}

void FormView::Mirror(ViewChange change) {
  if (change == ViewChange::Geometry) return MirrorGeometry();
  if (change == ViewChange::Content) return MirrorEnabled(menuActions_);
  MirrorAppearance();
  if (model_.Unloaded()) stale_ = true;
  if (model_.Visible() || !window_.isVisible()) return;
  window_.hide();
  if (OnHidden) OnHidden();
}

void FormView::MirrorAppearance() {
  window_.setWindowTitle(QString::fromStdString(model_.Caption()));
  window_.setWindowIcon(ArtworkIcon(model_.IconKey()));
}

void FormView::MirrorGeometry() {
  const QSize client(ToPixels(model_.ClientWidth()), ToPixels(model_.ClientHeight()));
  FitScreen(client);
  const QPoint origin = QGuiApplication::primaryScreen()->availableGeometry().topLeft();
  window_.move(origin + QPoint(ToPixels(model_.Left()), ToPixels(model_.Top())));
}

// A window larger than the screen scrolls.
void FormView::FitScreen(QSize client) {
  const int menuHeight = model_.MenuBar.empty() ? 0 : menuBar_.heightForWidth(client.width());
  const QSize whole = client + QSize(0, menuHeight);
  const QSize available = QGuiApplication::primaryScreen()->availableSize();
  if (model_.Resizable()) {
    if (!window_.isMaximized()) window_.resize(whole.boundedTo(available));
    return;
  }
  client_.resize(client);
  const int bar = window_.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const bool tooWide = whole.width() > available.width();
  const bool tooHigh = whole.height() > available.height();
  window_.setFixedSize((whole + QSize(tooHigh ? bar : 0, tooWide ? bar : 0)).boundedTo(available));
}

void FormView::Show(QWidget* above) {
  window_.winId();
  if (above != nullptr) window_.windowHandle()->setTransientParent(above->windowHandle());
  window_.windowHandle()->installEventFilter(this);
  exposed_ = false;
  window_.show();
  Activate();
  Control* const focused = model_.FocusedControl();
  if (focused != nullptr && focused->OnViewChange) focused->OnViewChange(ViewChange::Focus);
}

void FormView::Activate() {
  window_.raise();
  window_.activateWindow();
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &client_) return ClientEvent(*event);
  if (watched == &window_) return WindowEvent(*event);
  if (event->type() == QEvent::Expose) Exposed();
  return false;
}

bool FormView::WindowEvent(QEvent& event) {
  switch (event.type()) {
    case QEvent::Close:
      event.ignore();
      context_.windows.Dispatch([this] { model_.UnloadForm(); });
      return true;
    case QEvent::WindowStateChange:
      WindowStateChanged();
      return false;
    case QEvent::KeyPress:
      return KeyPressed(static_cast<const QKeyEvent&>(event));
    default:
      return false;
  }
}

bool FormView::ClientEvent(QEvent& event) {
  switch (event.type()) {
    case QEvent::Resize:
      if (!model_.Resizable() ||
          client_.size() == QSize(ToPixels(model_.ClientWidth()), ToPixels(model_.ClientHeight()))) {
        return false;
      }
      context_.windows.Dispatch(
          [this] { model_.UserResized(ToTwips(client_.width()), ToTwips(client_.height())); });
      return false;
    case QEvent::MouseMove: {
      const QPointF place = static_cast<const QMouseEvent&>(event).position();
      context_.windows.Dispatch([&] { model_.PerformMouseMove(0, ToTwips(place.x()), ToTwips(place.y())); });
      return false;
    }
    case QEvent::Paint:
      PaintBackground();
      return true;
    default:
      return false;
  }
}

void FormView::PaintBackground() {
  if (model_.BackgroundKey().empty()) return;
  const double ratio = client_.devicePixelRatioF();
  if (background_.deviceIndependentSize() != client_.size() || background_.devicePixelRatio() != ratio) {
    background_ = ArtworkPixmap(model_.BackgroundKey(), client_.size(), ratio);
  }
  QPainter(&client_).drawPixmap(0, 0, background_);
}

// A window paints when it comes into sight, not each time a part of it changes: a handler that sets controls
// would else set them back whenever the user changed one.
void FormView::Exposed() {
  const bool exposed = window_.windowHandle()->isExposed();
  const bool appeared = exposed && !exposed_;
  exposed_ = exposed;
  if (appeared) context_.windows.Dispatch([this] { model_.PerformPaint(); });
}

void FormView::WindowStateChanged() {
  const WindowState state = window_.isMinimized()   ? WindowState::Minimized
                            : window_.isMaximized() ? WindowState::Maximized
                                                    : WindowState::Normal;
  context_.windows.Dispatch([&] { model_.UserChangedState(state); });
}

// Keys that no control took.
bool FormView::KeyPressed(const QKeyEvent& event) {
  CommandButton* const button = ButtonFor(event.key());
  if (button == nullptr) return false;
  context_.windows.Dispatch([&] {
    button->SetFocus();
    button->PerformClick();
  });
  return true;
}

CommandButton* FormView::ButtonFor(int key) const {
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (!enter && key != Qt::Key_Escape) return nullptr;
  if (auto* const focused = dynamic_cast<CommandButton*>(model_.FocusedControl()); enter && focused)
    return focused;
  for (Control* const control : model_.AllControls()) {
    auto* const button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !button->Visible() || !button->Enabled()) continue;
    if (enter ? button->IsDefault() : button->IsCancel()) return button;
  }
  return nullptr;
}

}  // namespace Morvane
