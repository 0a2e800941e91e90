#include "desktop/binding/list_binding.h"

namespace desktop {

using platform::Aspect;

ListBinding::ListBinding(platform::Grid& control, ListView* widget, Services& services) : TypedBinding(control, widget) {
  widget->Attach(control, services);
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
