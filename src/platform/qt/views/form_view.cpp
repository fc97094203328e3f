#include "platform/qt/views/form_view.h"

#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/qt/desktop/qt_screen.h"
#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/control_views.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

Qt::WindowFlags FlagsFor(const Form& form, FormRole role) {
  Qt::WindowFlags flags =
      Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  flags |= role == FormRole::Main ? Qt::Window | Qt::WindowMinimizeButtonHint : Qt::Dialog;
  if (form.Design.resizable) flags |= Qt::WindowMaximizeButtonHint;
  return flags;
}

}  // namespace

FormView::FormView(Form& model, FormRole role, const ViewContext& context)
    : model_(model),
      role_(role),
      context_(context),
      window_(nullptr, FlagsFor(model, role)),
      layout_(&window_),
      scroll_(&window_),
      designedWidth_(ToPixels(model.ClientWidth())) {
  window_.setObjectName(QString::fromStdString(model.Name()));
  window_.setWindowTitle(QString::fromStdString(std::string(model.Design.caption)));
  if (!model.Design.iconKey.empty()) window_.setWindowIcon(ArtworkIcon(std::string(model.Design.iconKey)));
  window_.installEventFilter(this);
  client_.installEventFilter(this);
  client_.setMouseTracking(true);
  layout_.setContentsMargins({});
  layout_.addWidget(&scroll_);
  scroll_.setFrameShape(QFrame::NoFrame);
  scroll_.setFocusPolicy(Qt::NoFocus);
  scroll_.setWidget(&client_);
  if (role_ == FormRole::Modal) window_.setWindowModality(Qt::ApplicationModal);
  BuildMenuBar();
  BuildViews(model_, client_);
  OrderTabs();
  for (Timer* const timer : model_.Timers) KeepTime(*timer);
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
  if (model_.MenuBar.empty()) return;
  layout_.setMenuBar(&menuBar_);
  menuActions_ = FillMenu(menuBar_, model_.MenuBar);
  RunChosen(menuActions_, context_.windows);
}

void FormView::BuildViews(Container& container, QWidget& parent) {
  for (Control* const control : container.Children()) {
    views_.push_back(MakeControlView(*control, parent, context_));
    QWidget& widget = views_.back()->Widget();
    if (auto* const inner = dynamic_cast<Container*>(control)) BuildViews(*inner, widget);
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

// A tick ends before the next begins, also when it shows a message.
void FormView::KeepTime(Timer& timer) {
  QTimer& clock = clocks_.emplace_back();
  clock.setTimerType(Qt::PreciseTimer);
  connect(&clock, &QTimer::timeout, this, [this, &clock, &timer] {
    const QSignalBlocker once(clock);
    context_.windows.Dispatch(timer.Tick);
  });
  timer.OnChange = [clock = QPointer<QTimer>(&clock), &timer] {
    if (clock) timer.Running() ? clock->start(timer.Interval()) : clock->stop();
  };
  timer.OnChange();
}

void FormView::Mirror(ViewChange change) {
  if (change == ViewChange::Geometry) return MirrorGeometry();
  if (change == ViewChange::Content) return MirrorEnabled(menuActions_);
  if (model_.Visible() || !window_.isVisible()) return;
  window_.hide();
  if (OnHidden) OnHidden();
}

void FormView::MirrorGeometry() {
  if (following_) return;
  FitScreen(ClientSize());
  window_.move(Desk().topLeft() + PlaceOnScreen());
}

// None is placed with its title bar or its scroll bars beyond the edge.
QPoint FormView::PlaceOnScreen() const {
  const QSize spare = (RoomOnScreen() - window_.size()).expandedTo({0, 0});
  return {std::clamp(ToPixels(model_.Left()), 0, spare.width()),
          std::clamp(ToPixels(model_.Top()), 0, spare.height())};
}

// A window larger than the screen scrolls.
void FormView::FitScreen(QSize client) {
  client_.resize(client);
  if (window_.isMaximized()) return;
  const int menuHeight = model_.MenuBar.empty() ? 0 : menuBar_.heightForWidth(client.width());
  const QSize whole = client + QSize(0, menuHeight);
  const QSize available = RoomOnScreen();
  const int bar = ScrollBarWidth();
  const bool tooWide = whole.width() > available.width();
  const bool tooHigh = whole.height() > available.height();
  const QSize size = (whole + QSize(tooHigh ? bar : 0, tooWide ? bar : 0)).boundedTo(available);
  model_.Design.resizable ? window_.resize(size) : window_.setFixedSize(size);
}

QSize FormView::ClientSize() const {
  return {ToPixels(model_.ClientWidth()), ToPixels(model_.ClientHeight())};
}

// For a window, without the title bar that it gets.
QSize FormView::RoomOnScreen() const {
  return Desk().size() - QSize(0, window_.style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

int FormView::ScrollBarWidth() const {
  return window_.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

// The form takes the size of its window. Where it insists on more the window grows, as far as the screen has
// room, and else scrolls.
void FormView::FollowWindow() {
  if (!model_.Design.resizable || following_) return;
  const QScopedValueRollback<bool> following(following_, true);
  QSize room = scroll_.maximumViewportSize();
  const QSize spare = window_.isMaximized() ? QSize(0, 0) : RoomOnScreen() - window_.size();
  OfferSize(room);
  if (ClientSize().height() - room.height() > std::max(0, spare.height())) {
    room.rwidth() -= ScrollBarWidth();
    OfferSize(room);
  }
  client_.resize(ClientSize());
  const QSize lack = (ClientSize() - room).expandedTo({0, 0});
  GrowBy(lack.width() <= spare.width() ? lack.width() : 0,
         lack.height() <= spare.height() ? lack.height() : 0);
}

// A window manager lets no program resize what a hand has hold of; it heeds the least size.
void FormView::GrowBy(int width, int height) {
  const QSize grown = window_.size() + QSize(width, height);
  if (width > 0) window_.setMinimumWidth(grown.width());
  if (height > 0) window_.setMinimumHeight(grown.height());
  window_.resize(grown);
}

// Forms follow the height that there is. In width none gets less than it was made for where that is for want
// of a wider screen.
void FormView::OfferSize(QSize room) {
  if (Desk().width() < designedWidth_) room.setWidth(std::max(room.width(), designedWidth_));
  if (room == ClientSize()) return;
  context_.windows.Dispatch([&] { model_.UserResizes(ToTwips(room.width()), ToTwips(room.height())); });
}

void FormView::Show(QWidget* above) {
  window_.winId();
  if (above != nullptr) window_.windowHandle()->setTransientParent(above->windowHandle());
  window_.windowHandle()->installEventFilter(this);
  window_.show();
  Activate();
  if (Control* const focused = model_.FocusedControl()) {
    focused->OnViewChange(ViewChange::Focus);
  } else if (QWidget* const first = FirstStop()) {
    first->setFocus();
  }
}

// Where the keyboard is in a window just opened: in the first control of the tab order that is no picture or
// label to click, since Enter would press it in the default button's place.
QWidget* FormView::FirstStop() const {
  for (const auto& view : views_) {
    if (view->IsLink()) continue;
    for (QWidget* const stop : view->FocusStops()) {
      if (stop != nullptr && stop->isVisible() && stop->isEnabled() &&
          (stop->focusPolicy() & Qt::TabFocus) != 0)
        return stop;
    }
  }
  return nullptr;
}

void FormView::Activate() {
  window_.raise();
  window_.activateWindow();
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &client_) return ClientEvent(*event);
  if (watched == &window_) return WindowEvent(*event);
  if (event->type() == QEvent::Paint) uncovered_ = static_cast<const QPaintEvent&>(*event).region();
  if (event->type() == QEvent::Expose) Exposed();
  return false;
}

bool FormView::WindowEvent(QEvent& event) {
  switch (event.type()) {
    case QEvent::Close:
      event.ignore();
      context_.windows.Dispatch([this] { model_.UnloadForm(); });
      return true;
    case QEvent::Move:
      Moved();
      return false;
    case QEvent::Resize:
      FollowWindow();
      return false;
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
    case QEvent::MouseMove: {
      const QPointF place = static_cast<const QMouseEvent&>(event).position();
      context_.windows.Dispatch([&] { model_.MouseMove(ToTwips(place.x()), ToTwips(place.y())); });
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
  const std::string key(model_.Design.backgroundKey);
  if (key.empty()) return;
  QPainter(&client_).drawPixmap(0, 0, ArtworkPixmap(key, client_.size(), client_.devicePixelRatioF()));
}

// A window paints when the window system has uncovered some of it, not when the program changes a control: a
// handler that sets controls would else set them back whenever the user changed one.
void FormView::Exposed() {
  const QRegion uncovered = std::exchange(uncovered_, {}).translated(window_.geometry().topLeft());
  if (!window_.windowHandle()->isExposed() || lastToolTip_.Held(uncovered)) return;
  context_.windows.Dispatch(model_.Paint);
}

// The window system tells the place after the fact; one that stands for the form's own twips changes nothing.
void FormView::Moved() {
  const QPoint place = window_.pos() - Desk().topLeft();
  if (!window_.isVisible() || window_.isMaximized() || window_.isMinimized() ||
      place == QPoint(ToPixels(model_.Left()), ToPixels(model_.Top()))) {
    return;
  }
  model_.UserMoves(ToTwips(place.x()), ToTwips(place.y()));
}

void FormView::WindowStateChanged() {
  const WindowState state = window_.isMinimized()   ? WindowState::Minimized
                            : window_.isMaximized() ? WindowState::Maximized
                                                    : WindowState::Normal;
  context_.windows.Dispatch([&] { model_.UserChangesState(state); });
}

// Keys that no control took.
bool FormView::KeyPressed(const QKeyEvent& event) {
  if (event.isAutoRepeat() || HoldsModifier(event)) return false;
  CommandButton* const button = ButtonFor(event);
  if (button == nullptr) return false;
  context_.windows.Dispatch([&] {
    button->SetFocus();
    button->UserClicks();
  });
  return true;
}

CommandButton* FormView::ButtonFor(const QKeyEvent& event) const {
  const bool enter = IsEnter(event);
  if (!enter && event.key() != Qt::Key_Escape) return nullptr;
  if (auto* const focused = dynamic_cast<CommandButton*>(model_.FocusedControl()); enter && focused)
    return focused;
  for (Control* const control : model_.AllControls()) {
    auto* const button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !button->Visible()) continue;
    if (enter ? button->Default : button->Cancel) return button;
  }
  return nullptr;
}

}  // namespace Morvane
