#include "platform/controls/simple_controls.h"

#include "platform/runtime_error.h"

namespace Morvane {

void CheckBox::SetValue(int value) {
  if (value != 0 && value != 1) {
    throw RuntimeError(ErrorNumber::InvalidPropertyValue, "Valore della casella non valido.");
  }
  if (value_ == value) return;
  value_ = value;
  OnViewChange(ViewChange::Selection);
  Click();
}

void CheckBox::UserClicks() {
  SetValue(1 - value_);
}

void OptionButton::SetValue(bool value) {
  if (value_ == value) return;
  value_ = value;
  OnViewChange(ViewChange::Selection);
  if (!value) return;
  for (Control* sibling : Parent().Children()) {
    auto* other = dynamic_cast<OptionButton*>(sibling);
    if (other != nullptr && other != this) other->SetValue(false);
  }
  Click();
}

void OptionButton::UserClicks() {
  SetValue(true);
}

void TextBox::SetText(const std::string& text) {
  if (text_ == text) return;
  text_ = text;
  OnViewChange(ViewChange::Content);
  Change();
}

void ImageBox::SetPicture(const PicturePtr& picture) {
  picture_ = picture;
  TakeNaturalSize();
  OnViewChange(ViewChange::Content);
}

void ImageBox::SetStretch(bool on) {
  stretch_ = on;
  TakeNaturalSize();
}

void ImageBox::TakeNaturalSize() {
  if (stretch_ || !picture_) return;
  SetWidth(picture_->WidthTwips());
  SetHeight(picture_->HeightTwips());
}

}  // namespace Morvane
