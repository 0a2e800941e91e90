#pragma once

#include <QStackedWidget>

#include "desktop/binding/binding.h"
#include "desktop/controls/tab_bar.h"
#include "platform/controls/form/tab_control.h"

namespace desktop {

/// Tabs and, beside them in a stack named after the tabs with "_pages", the pages "tab_<tab>_page_<page>".
class TabBinding final : public TypedBinding<platform::TabControl, TabBar> {
 public:
  TabBinding(platform::TabControl& control, TabBar* widget);
  void Show(platform::Aspect aspect) override;

 private:
  void ShowTabs();
  void ShowPage();
  QStackedWidget* pages_;
};

}  // namespace desktop
