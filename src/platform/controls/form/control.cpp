#include "platform/controls/form/control.h"

#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/controls/form/tab_control.h"

namespace platform {

Control::Control(Form& form, std::string name, int index) : form_(form), name_(std::move(name)), index_(index) { form_.Register(*this); }

Control::~Control() { form_.Unregister(*this); }

std::string Control::FullName() const { return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")"; }

void Control::Enabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed(Aspect::Enabled);
  form_.CheckFocus();
}

void Control::Visible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed(Aspect::Visible);
  form_.CheckFocus();
}

void Control::ToolTipText(std::string text) {
  toolTip_ = std::move(text);
  Changed(Aspect::ToolTip);
}

void Control::PutOnTab(TabControl& tabs, int tab, int page) noexcept {
  tabs_ = &tabs;
  tab_ = tab;
  page_ = page;
}

bool Control::EffectivelyVisible() const {
  if (!visible_) return false;
  if (container_ && !container_->EffectivelyVisible()) return false;
  if (!tabs_) return true;
  return tabs_->EffectivelyVisible() && tabs_->Tab() == tab_ && (page_ < 0 || tabs_->Page() == page_);
}

bool Control::EffectivelyEnabled() const { return enabled_ && (!container_ || container_->EffectivelyEnabled()); }

void Control::SetFocus() {
  if (TakesFocus() && OpenToUser()) form_.MoveFocus(this);
}

void Control::UserHover() {
  Act([this] { MouseMove.Fire(); });
}

void Control::Act(const std::function<void()>& body) { form_.Act(body); }

void Control::UserCommand(const std::function<void()>& body) { form_.UserCommand(body); }

void Control::Changed(Aspect aspect) { form_.Host().Changed(form_, this, aspect); }

}  // namespace platform
