#include "desktop/binding/list_binding.h"

#include "desktop/window/form_window.h"

namespace desktop {

using platform::Aspect;

ListBinding::ListBinding(FormWindow& window, platform::Grid& control, ListView* widget) : TypedBinding(window, control, widget) {
  widget->Attach(control, window.Shared());
}

void ListBinding::ShowAll() {
  Binding::ShowAll();
  Show(Aspect::CurrentRow);
}

void ListBinding::Show(Aspect aspect) {
  Binding::Show(aspect);
  shown().Show(aspect);
}

void ListBinding::Drop() {
  shown().Detach();
  TypedBinding::Drop();
}

}  // namespace desktop
