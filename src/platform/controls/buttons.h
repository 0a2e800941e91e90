#pragma once

#include <string>

#include "platform/controls/form/control.h"

namespace platform {

/// A button. The user's click takes the focus and fires Click.
class CommandButton final : public Control {
 public:
  CommandButton(Form& form, std::string name, std::string caption = "");
  CommandButton(Form& form, std::string name, int index, std::string caption = "");
  const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption);
  bool TakesFocus() const override { return true; }
  Event<> Click;
  void UserClick();

 private:
  std::string caption_;
};

/// A check box: 0 off, 1 on. Click fires on each real change, by the user and in code.
class CheckBox final : public Control {
 public:
  CheckBox(Form& form, std::string name, std::string caption = "");
  CheckBox(Form& form, std::string name, int index, std::string caption = "");
  const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption);
  int Value() const noexcept { return value_; }
  void Value(int value);
  bool TakesFocus() const override { return true; }
  Event<> Click;
  void UserClick();

 private:
  std::string caption_;
  int value_ = 0;
};

/// One choice of a group (its control array). Turning it on fires Click when it was off and turns its siblings off in
/// silence; turning it off in code is silent.
class OptionButton final : public Control {
 public:
  OptionButton(Form& form, std::string name, int index);
  const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption);
  bool Value() const noexcept { return value_; }
  void Value(bool on);
  /// The choice that the design shows; fires nothing.
  void Design(bool on) noexcept { value_ = on; }
  bool TakesFocus() const override { return true; }
  /// A group of choices is one stop: the choice that is on, or its first one while none is. The arrow keys go through the others.
  bool IsTabStop() const override;
  Event<> Click;
  void UserClick();

 private:
  std::string caption_;
  bool value_ = false;
};

}  // namespace platform
