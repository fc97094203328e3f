#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/form.h"
#include "platform/picture.h"

namespace Morvane {

enum class Alignment { Left, Right, Centre };

class Label : public Control {
 public:
  using Control::Control;

  Alignment TextAlignment = Alignment::Left;
  std::optional<Color> BackColor;
};

class CommandButton : public Control {
 public:
  using Control::Control;

  // Pressed by Enter or Esc wherever the focus is, unless the focused control takes the key.
  bool Default = false;
  bool Cancel = false;
};

// A box with a caption that holds other controls; the option buttons directly in it are one group.
class Frame : public Control, public Container {
 public:
  using Control::Control;

  Form& OwnerForm() override { return Parent().OwnerForm(); }
};

// 0 or 1; a change of value, by the user or from code, fires Click.
class CheckBox : public Control {
 public:
  using Control::Control;

  int Value() const { return value_; }
  void SetValue(int value);
  void UserClicks() override;

 private:
  int value_ = 0;
};

// Selecting one that was not selected clears the others of its container and fires Click before returning.
class OptionButton : public Control {
 public:
  using Control::Control;

  bool Value() const { return value_; }
  void SetValue(bool value);
  void UserClicks() override;

 private:
  bool value_ = false;
};

// Free text; each change, typed or from code, fires Change.
class TextBox : public Control {
 public:
  using Control::Control;

  std::function<void()> Change = [] {};

  const std::string& Text() const { return text_; }
  void SetText(const std::string& text);

  bool MultiLine = false;
  bool ReadOnly = false;
  Alignment TextAlignment = Alignment::Left;

 private:
  std::string text_;
};

// Shows a picture, or a drawing of the program's artwork. With Stretch off the control takes the picture's
// natural size.
class ImageBox : public Control {
 public:
  using Control::Control;

  const PicturePtr& GetPicture() const { return picture_; }
  void SetPicture(const PicturePtr& picture);
  void SetStretch(bool on);

 private:
  void TakeNaturalSize();

  PicturePtr picture_;
  bool stretch_ = true;
};

// A ruled line or an empty box, for the eye only.
class Ruling : public Control {
 public:
  using Control::Control;
};

}  // namespace Morvane
