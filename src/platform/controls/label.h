#pragma once

#include <string>

#include "platform/controls/form/control.h"

namespace platform {

/// A control whose content is a caption that the user can't change: label, frame, panel.
class CaptionControl : public Control {
 public:
  using Control::Control;
  CaptionControl(Form& form, std::string name, int index, std::string caption);
  CaptionControl(Form& form, std::string name, std::string caption);
  const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption);

 private:
  std::string caption_;
};

class Label final : public CaptionControl {
 public:
  using CaptionControl::CaptionControl;
};

class Frame final : public CaptionControl {
 public:
  using CaptionControl::CaptionControl;
};

/// A bar that fills from 0 to Max.
class ProgressBar final : public Control {
 public:
  using Control::Control;
  int Max() const noexcept { return max_; }
  void Max(int max);
  int Value() const noexcept { return value_; }
  void Value(int value);

 private:
  int max_ = 100;
  int value_ = 0;
};

/// One line of hints at the foot of a screen; panels are numbered from 1.
class StatusBar final : public Control {
 public:
  using Control::Control;
  const std::string& Panel(int number) const;
  void Panel(int number, std::string text);

 private:
  std::string panels_[3];
};

}  // namespace platform
