#include "platform/qt/views/control_views.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>
#include <memory>

#include "platform/controls/simple_controls.h"
#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

constexpr int kSmallestButtonIcon = 16;
constexpr int kLargestButtonIcon = 32;
constexpr int kButtonMargin = 2;
constexpr int kIndicatorGap = 4;
constexpr int kWrapped = Qt::TextWordWrap | Qt::TextShowMnemonic;

void DrawCaption(QStylePainter& painter, const QRect& room, int alignment, const QStyleOptionButton& option,
                 const QString& caption) {
  painter.setFont(FittingFont(painter.font(), caption, room.size(), kWrapped));
  painter.drawItemText(room, alignment | kWrapped, option.palette,
                       option.state.testFlag(QStyle::State_Enabled), caption, QPalette::ButtonText);
}

// The indicator at the left, no higher than the button, the caption beside it, both centred in height.
void DrawChoice(QAbstractButton& button, QStylePainter& painter, QStyleOptionButton& option,
                QStyle::PrimitiveElement indicator, QStyle::PixelMetric metric) {
  const QRect whole = option.rect;
  const int side = std::min(painter.style()->pixelMetric(metric, &option), whole.height());
  option.rect = QRect(0, (whole.height() - side) / 2, side, side);
  painter.drawPrimitive(indicator, option);
  const QRect room = whole.adjusted(side + kIndicatorGap, 0, 0, 0);
  DrawCaption(painter, room, Qt::AlignLeft | Qt::AlignVCenter, option, button.text());
  PaintKeyboardFocus(button, painter, room);
}

// The options directly in `parent`. Left alone, the toolkit counts those of the frames within to them.
QButtonGroup& OptionsOf(QWidget& parent) {
  auto* group = parent.findChild<QButtonGroup*>(QString(), Qt::FindDirectChildrenOnly);
  if (group == nullptr) group = std::make_unique<QButtonGroup>(&parent).release();  // the parent's from here
  return *group;
}

// A push button whose caption may take several lines, below its picture.
class WrappedButton : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QRect DrawIcon(QPainter& painter, const QRect& room) const;
  QRect DrawIconBeside(QPainter& painter, const QRect& room) const;
};

// A check box or option button whose caption may take several lines; the whole box can be clicked.
template <typename Button, QStyle::PrimitiveElement kIndicator, QStyle::PixelMetric kSide>
class WrappedChoice : public Button {
 public:
  using Button::Button;

 protected:
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    QStyleOptionButton option;
    this->initStyleOption(&option);
    DrawChoice(*this, painter, option, kIndicator, kSide);
  }
  bool hitButton(const QPoint& place) const override { return this->rect().contains(place); }
};

using WrappedCheckBox = WrappedChoice<QCheckBox, QStyle::PE_IndicatorCheckBox, QStyle::PM_IndicatorWidth>;
using WrappedRadioButton =
    WrappedChoice<QRadioButton, QStyle::PE_IndicatorRadioButton, QStyle::PM_ExclusiveIndicatorWidth>;

// What is pressed by a click, an access key, the space bar or as the default button.
template <typename Kind, typename Button>
class ButtonView : public WidgetView<Kind, Button> {
 public:
  ButtonView(Kind& model, QWidget& parent, const ViewContext& context)
      : WidgetView<Kind, Button>(model, parent, context) {
    this->connect(&this->widget_, &Button::clicked, this, [this] { Pressed(); });
  }

 protected:
  void MirrorAppearance() override {
    ControlView::MirrorAppearance();
    const QString caption = QString::fromStdString(this->model_.Caption());
    if (this->widget_.text() != caption) this->widget_.setText(caption);
  }
  bool MouseReleased(QWidget&, const QMouseEvent&) override { return false; }

 private:
  // Not every press comes with a click: the control that had the focus loses it first all the same, so that
  // what was typed there counts. The toolkit has toggled the button, which may not be what the control did.
  void Pressed() {
    this->Feed([this] {
      this->model_.SetFocus();
      this->model_.UserClicks();
    });
    this->MirrorSelection();
  }
};

class CommandButtonView : public ButtonView<CommandButton, WrappedButton> {
 public:
  using ButtonView::ButtonView;

 protected:
  void MirrorAppearance() override;
};

class CheckBoxView : public ButtonView<CheckBox, WrappedCheckBox> {
 public:
  using ButtonView::ButtonView;

 protected:
  void MirrorSelection() override { widget_.setChecked(model_.Value() != 0); }
};

class OptionButtonView : public ButtonView<OptionButton, WrappedRadioButton> {
 public:
  OptionButtonView(OptionButton& model, QWidget& parent, const ViewContext& context);

 protected:
  void MirrorSelection() override;

 private:
  QButtonGroup& group_;
};

void WrappedButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  option.icon = {};
  painter.drawControl(QStyle::CE_PushButtonBevel, option);
  const QRect room = rect().adjusted(kButtonMargin, kButtonMargin, -kButtonMargin, -kButtonMargin);
  PaintKeyboardFocus(*this, painter, room);
  DrawCaption(painter, DrawIcon(painter, room), Qt::AlignCenter, option, text());
}

// Which button Enter presses, this or the default one, is the window's to say.
void WrappedButton::keyPressEvent(QKeyEvent* event) {
  IsEnter(*event) ? event->ignore() : QPushButton::keyPressEvent(event);
}

// A button too low for both has the picture at the left of its caption.
QRect WrappedButton::DrawIconBeside(QPainter& painter, const QRect& room) const {
  const int captionWidth = QFontMetrics(font()).size(Qt::TextShowMnemonic, text()).width();
  const int gap = kButtonMargin;
  const int left = room.left() + std::max(0, room.width() - captionWidth - gap - kSmallestButtonIcon) / 2;
  const QRect place(left, room.center().y() - kSmallestButtonIcon / 2, kSmallestButtonIcon,
                    kSmallestButtonIcon);
  icon().paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  return {place.right() + gap, room.top(), std::min(captionWidth + gap, room.right() - place.right()),
          room.height()};
}

// The picture takes what the caption leaves; the result is the room for the caption.
QRect WrappedButton::DrawIcon(QPainter& painter, const QRect& room) const {
  if (icon().isNull()) return room;
  if (room.height() < 2 * kSmallestButtonIcon) return DrawIconBeside(painter, room);
  const QFont captionFont =
      FittingFont(font(), text(), room.size() - QSize(0, kSmallestButtonIcon), kWrapped);
  const int captionHeight = QFontMetrics(captionFont).boundingRect(room, kWrapped, text()).height();
  const int side = std::clamp(room.height() - captionHeight, kSmallestButtonIcon, kLargestButtonIcon);
  const int top = room.top() + std::max(0, room.height() - captionHeight - side) / 2;
  icon().paint(&painter, {room.center().x() - side / 2, top, side, side}, Qt::AlignCenter,
               isEnabled() ? QIcon::Normal : QIcon::Disabled);
  return room.adjusted(0, top + side - room.top(), 0, 0);
}

void CommandButtonView::MirrorAppearance() {
  ButtonView::MirrorAppearance();
  widget_.setIcon(ArtworkIcon(model_.ImageKey()));
  widget_.setDefault(model_.Default);
}

OptionButtonView::OptionButtonView(OptionButton& model, QWidget& parent, const ViewContext& context)
    : ButtonView(model, parent, context), group_(OptionsOf(parent)) {
  group_.addButton(&widget_);
}

// The toolkit refuses to clear the last option of a group; the program may.
void OptionButtonView::MirrorSelection() {
  group_.setExclusive(false);
  widget_.setChecked(model_.Value());
  group_.setExclusive(true);
}

}  // namespace

const ViewMaker kMakeCommandButtonView = MakeFor<CommandButton, CommandButtonView>;
const ViewMaker kMakeCheckBoxView = MakeFor<CheckBox, CheckBoxView>;
const ViewMaker kMakeOptionButtonView = MakeFor<OptionButton, OptionButtonView>;

}  // namespace Morvane
