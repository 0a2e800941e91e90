#include "desktop/binding/tab_binding.h"

namespace desktop {

using platform::Aspect;

TabBinding::TabBinding(platform::TabControl& control, TabBar* widget)
    : TypedBinding(control, widget), pages_(widget->window()->findChild<QStackedWidget*>(WidgetName(control) + "_pages")) {
  widget->OnClick([this](int tab) {
    Act([&] { this->control().UserClick(tab); });
    if (!Dropped()) Show(Aspect::Tab);
  });
}

void TabBinding::Show(Aspect aspect) {
  if (aspect == Aspect::Tab) {
    ShowTabs();
    ShowPage();
  } else {
    Binding::Show(aspect);
  }
}

void TabBinding::ShowTabs() {
  const int count = control().TabCount();
  while (shown().count() < count) shown().addTab(QString());
  for (int tab = 0; tab < count; ++tab) {
    const QString caption = ToShown(control().TabCaption(tab)).trimmed();
    if (shown().tabText(tab) != caption) shown().setTabText(tab, caption);
    // The current tab is drawn as it is, also where code went to a closed one.
    const bool open = control().TabEnabled(tab) || tab == control().Tab();
    if (shown().isTabEnabled(tab) != open) shown().setTabEnabled(tab, open);
  }
  shown().setCurrentIndex(control().Tab());
}

void TabBinding::ShowPage() {
  if (!pages_) return;
  auto* page =
      pages_->findChild<QWidget*>(QString("tab_%1_page_%2").arg(control().Tab()).arg(control().Page()), Qt::FindDirectChildrenOnly);
  if (page && pages_->currentWidget() != page) pages_->setCurrentWidget(page);
}

}  // namespace desktop
