#include "platform/controls/form/tab_control.h"

#include "platform/controls/form/form.h"

namespace platform {

TabControl::TabControl(Form& form, std::string name, std::vector<std::string> captions) : Control(form, std::move(name)) {
  for (std::string& caption : captions) tabs_.push_back({std::move(caption), true});
}

bool TabControl::TabEnabled(int tab) const { return tabs_.at(static_cast<std::size_t>(tab)).enabled; }

void TabControl::TabEnabled(int tab, bool enabled) {
  bool& now = tabs_.at(static_cast<std::size_t>(tab)).enabled;
  if (now == enabled) return;
  now = enabled;
  Changed(Aspect::Tab);
}

const std::string& TabControl::TabCaption(int tab) const { return tabs_.at(static_cast<std::size_t>(tab)).caption; }

void TabControl::TabCaption(int tab, std::string caption) {
  tabs_.at(static_cast<std::size_t>(tab)).caption = std::move(caption);
  Changed(Aspect::Tab);
}

void TabControl::Tab(int tab) {
  if (tab == tab_) return;
  Switch(tab);
}

void TabControl::Page(int page) {
  if (page == page_) return;
  page_ = page;
  Changed(Aspect::Tab);
  Owner().FocusMayHaveGone();
}

void TabControl::Switch(int tab) {
  const int previous = tab_;
  tab_ = tab;
  Changed(Aspect::Tab);
  Owner().FocusMayHaveGone();
  Click.Fire(previous);
}

bool TabControl::UserClick(int tab) {
  if (tab == tab_ || !TabEnabled(tab)) return false;
  bool changed = false;
  UserCommand([&] {
    bool cancel = false;
    BeforeTabClick.Fire(tab, cancel);
    if (cancel) {
      Changed(Aspect::Tab);
      return;
    }
    changed = true;
    Switch(tab);
  });
  return changed;
}

}  // namespace platform
