#include "platform/controls/label.h"

namespace platform {

CaptionControl::CaptionControl(Form& form, std::string name, int index, std::string caption)
    : Control(form, std::move(name), index), caption_(std::move(caption)) {}

CaptionControl::CaptionControl(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), caption_(std::move(caption)) {}

void CaptionControl::Caption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Changed(Aspect::Text);
}

void ProgressBar::Max(int max) {
  max_ = max;
  Changed(Aspect::Text);
}

void ProgressBar::Value(int value) {
  if (value_ == value) return;
  value_ = value;
  Changed(Aspect::Text);
}

const std::string& StatusBar::Panel(int number) const { return panels_[number - 1]; }

void StatusBar::Panel(int number, std::string text) {
  if (panels_[number - 1] == text) return;
  panels_[number - 1] = std::move(text);
  Changed(Aspect::Text);
}

}  // namespace platform
