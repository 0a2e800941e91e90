#include "platform/controls/buttons.h"

#include <algorithm>

#include "platform/controls/form/form.h"

namespace platform {

CommandButton::CommandButton(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), caption_(std::move(caption)) {}

CommandButton::CommandButton(Form& form, std::string name, int index, std::string caption)
    : Control(form, std::move(name), index), caption_(std::move(caption)) {}

void CommandButton::Caption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Changed(Aspect::Text);
}

void CommandButton::UserClick() {
  UserCommand([this] {
    SetFocus();
    Click.Fire();
  });
}

CheckBox::CheckBox(Form& form, std::string name, std::string caption) : Control(form, std::move(name)), caption_(std::move(caption)) {}

CheckBox::CheckBox(Form& form, std::string name, int index, std::string caption)
    : Control(form, std::move(name), index), caption_(std::move(caption)) {}

void CheckBox::Caption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Changed(Aspect::Text);
}

void CheckBox::Value(int value) {
  if (value_ == value) return;
  value_ = value;
  Changed(Aspect::Text);
  Click.Fire();
}

void CheckBox::UserClick() {
  UserCommand([this] {
    SetFocus();
    Value(value_ == 0 ? 1 : 0);
  });
}

OptionButton::OptionButton(Form& form, std::string name, int index) : Control(form, std::move(name), index) {}

void OptionButton::Caption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Changed(Aspect::Text);
}

void OptionButton::Value(bool on) {
  if (value_ == on) return;
  value_ = on;
  if (!on) {
    Changed(Aspect::Text);
    return;
  }
  for (Control* control : Owner().Controls()) {
    auto* sibling = dynamic_cast<OptionButton*>(control);
    if (sibling && sibling != this && sibling->value_ && sibling->Name() == Name()) {
      sibling->value_ = false;
      sibling->Changed(Aspect::Text);
    }
  }
  Changed(Aspect::Text);
  Click.Fire();
}

bool OptionButton::IsTabStop() const {
  if (value_) return true;
  return std::none_of(Owner().Controls().begin(), Owner().Controls().end(), [this](const Control* other) {
    // The cheap test first: a focus that has to leave asks every choice about every control.
    if (other == this || other->Name() != Name()) return false;
    const auto* sibling = dynamic_cast<const OptionButton*>(other);
    if (!sibling) return false;
    if (!sibling->OpenToUser()) return false;
    return sibling->Value() || sibling->Index() < Index();
  });
}

void OptionButton::UserClick() {
  UserCommand([this] {
    SetFocus();
    Value(true);
  });
}

}  // namespace platform
