#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/form/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/text_box.h"

/// A screen's control by its name, in an array by its index too. Throws where there is none of that kind.
template <class T>
T& ControlOf(const platform::Form& form, std::string_view name, int index = -1) {
  auto* control = dynamic_cast<T*>(form.Find(name, index));
  if (control == nullptr) throw std::logic_error("no such control: " + std::string(name));
  return *control;
}

inline platform::TextBox& EditOf(const platform::Form& form, std::string_view name) { return ControlOf<platform::TextBox>(form, name); }
inline platform::ComboBox& ComboOf(const platform::Form& form, std::string_view name) { return ControlOf<platform::ComboBox>(form, name); }
inline platform::CheckBox& CheckOf(const platform::Form& form, std::string_view name) { return ControlOf<platform::CheckBox>(form, name); }
inline platform::Label& LabelOf(const platform::Form& form, std::string_view name) { return ControlOf<platform::Label>(form, name); }
inline platform::Frame& FrameOf(const platform::Form& form, std::string_view name) { return ControlOf<platform::Frame>(form, name); }
inline platform::Grid& GridOf(const platform::Form& form, std::string_view name) { return ControlOf<platform::Grid>(form, name); }
inline platform::CommandButton& ButtonOf(const platform::Form& form, std::string_view name) {
  return ControlOf<platform::CommandButton>(form, name);
}
inline platform::OptionButton& OptionOf(const platform::Form& form, std::string_view name, int index) {
  return ControlOf<platform::OptionButton>(form, name, index);
}
