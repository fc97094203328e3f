#include "platform/controls/simple_controls.h"

#include "platform/runtime_error.h"

namespace Morvane {

void CheckBox::SetValue(int value) {
  if (value != 0 && value != 1) {
    throw RuntimeError(ErrorNumber::InvalidPropertyValue, "Valore della casella non valido.");
  }
  if (value_ == value) return;
  value_ = value;
  Notify(ViewChange::Selection);
  if (Click) Click();
}

void CheckBox::PerformClick() {
  SetValue(1 - value_);
}

void OptionButton::SetValue(bool value) {
  if (value_ == value) return;
  value_ = value;
  Notify(ViewChange::Selection);
  if (!value) return;
  for (Control* sibling : Parent().Children()) {
    auto* other = dynamic_cast<OptionButton*>(sibling);
    if (other != nullptr && other != this) other->SetValue(false);
  }
  if (Click) Click();
}

void OptionButton::PerformClick() {
  SetValue(true);
}

void TextBox::SetText(const std::string& text) {
  if (text_ == text) return;
  text_ = text;
  Notify(ViewChange::Content);
  if (Change) Change();
}

void ImageBox::SetPicture(const PicturePtr& picture) {
  picture_ = picture;
  TakeNaturalSize();
  Notify(ViewChange::Content);
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

void Timer::PerformTick() {
  if (Tick) Tick();
}

}  // namespace Morvane
