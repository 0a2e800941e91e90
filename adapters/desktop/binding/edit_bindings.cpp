#include "desktop/binding/edit_bindings.h"

#include "desktop/controls/date_popup.h"

namespace desktop {

using platform::Aspect;

TextEditBinding::TextEditBinding(platform::TextBox& control, TextEdit* widget) : TypedBinding(control, widget) {
  widget->Attach(control);
  // A card that is only looked at has nothing to choose.
  if (auto* date = dynamic_cast<platform::DateEdit*>(&control); date && !date->Locked()) AddCalendar(*widget, *date);
}

void TextEditBinding::Show(Aspect aspect) {
  Binding::Show(aspect);
  if (aspect == Aspect::Text || aspect == Aspect::Mask || aspect == Aspect::Enabled || aspect == Aspect::Selection) shown().ShowModel();
}

void TextEditBinding::Drop() {
  shown().Detach();
  TypedBinding::Drop();
}

MemoEditBinding::MemoEditBinding(platform::TextBox& control, MemoEdit* widget) : TypedBinding(control, widget) { widget->Attach(control); }

void MemoEditBinding::Show(Aspect aspect) {
  Binding::Show(aspect);
  if (aspect == Aspect::Text || aspect == Aspect::Mask || aspect == Aspect::Enabled) shown().ShowModel();
}

void MemoEditBinding::Drop() {
  shown().Detach();
  TypedBinding::Drop();
}

ComboBinding::ComboBinding(platform::ComboBox& control, ComboEdit* widget) : TypedBinding(control, widget) { widget->Attach(control); }

void ComboBinding::Show(Aspect aspect) {
  Binding::Show(aspect);
  if (aspect == Aspect::List || aspect == Aspect::Columns) shown().ForgetRows();
  if (aspect == Aspect::Text) shown().ShowModel();
}

void ComboBinding::Drop() {
  shown().Detach();
  TypedBinding::Drop();
}

}  // namespace desktop
