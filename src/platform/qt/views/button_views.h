#pragma once

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/controls/simple_controls.h"
#include "platform/qt/views/control_view.h"

class QButtonGroup;

namespace Morvane {

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

class CommandButtonView : public ControlView {
 public:
  CommandButtonView(CommandButton& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &button_; }

 protected:
  void MirrorAppearance() override;
  bool MouseReleased(QWidget&, const QMouseEvent&) override { return false; }

 private:
  CommandButton& model_;
  WrappedButton button_;
};

// Check boxes and option buttons whose caption may take several lines; the whole box can be clicked.
class WrappedCheckBox : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& place) const override { return rect().contains(place); }
};

class WrappedRadioButton : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& place) const override { return rect().contains(place); }
};

class CheckBoxView : public ControlView {
 public:
  CheckBoxView(CheckBox& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &box_; }

 protected:
  void MirrorAppearance() override;
  void MirrorSelection() override;
  bool MouseReleased(QWidget&, const QMouseEvent&) override { return false; }

 private:
  CheckBox& model_;
  WrappedCheckBox box_;
};

class OptionButtonView : public ControlView {
 public:
  OptionButtonView(OptionButton& model, QWidget& parent, const ViewContext& context);

  QWidget* Widget() override { return &button_; }

 protected:
  void MirrorAppearance() override;
  void MirrorSelection() override;
  bool MouseReleased(QWidget&, const QMouseEvent&) override { return false; }

 private:
  OptionButton& model_;
  WrappedRadioButton button_;
  QButtonGroup& group_;
};

}  // namespace Morvane
