#include "desktop/binding/binding.h"

namespace desktop {

using platform::Aspect;

Binding::Binding(platform::Control& control, QWidget* widget) : host_(control.Owner().Host()), model_(control), widget_(widget) {}

void Binding::ShowAll() {
  for (const Aspect aspect :
       {Aspect::Enabled, Aspect::Visible, Aspect::ToolTip, Aspect::Mask, Aspect::Columns, Aspect::List, Aspect::Tab, Aspect::Text})
    Show(aspect);
}

void Binding::Show(Aspect aspect) {
  if (!widget_) return;
  switch (aspect) {
    case Aspect::Enabled:
      widget_->setEnabled(model_.Enabled());
      break;
    case Aspect::Visible:
      widget_->setVisible(model_.Visible());
      break;
    case Aspect::ToolTip:
      widget_->setToolTip(ToShown(model_.ToolTipText()));
      break;
    default:
      break;
  }
}

void Binding::Drop() { dropped_ = true; }

}  // namespace desktop
