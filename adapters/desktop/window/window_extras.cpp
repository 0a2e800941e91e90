#include "desktop/window/window_extras.h"

#include <QAction>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>

#include "desktop/list/list_view.h"
#include "desktop/services/services.h"
#include "desktop/toolkit/toolkit.h"
#include "desktop/window/help.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/card_screen.h"
#include "platform/controls/form/filtered_screen.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/toolbar.h"

namespace desktop {

using platform::Aspect;

WindowExtras::WindowExtras(QMainWindow& window, platform::Form& form, Services& services)
    : window_(window),
      form_(form),
      services_(services),
      cards_(dynamic_cast<const platform::CardScreen*>(&form)),
      filtered_(dynamic_cast<const platform::FilteredScreen*>(&form)),
      badge_(window.findChild<QLabel*>("modeBadge")) {
  ConnectButtons();
  if (window.findChild<QMenuBar*>()) AddMenus();
  if (cards_ && window.findChild<QStatusBar*>()) {
    place_ = NewWidget<QLabel>(window.statusBar());
    place_->setObjectName("rowPlace");
    place_->setProperty("role", "hint");
    window.statusBar()->addPermanentWidget(place_);
  }
  if (auto* label = filtered_ ? window.findChild<QLabel*>("filterBadge") : nullptr) filterBadge_ = NewChild<FilterBadge>(label, *label);
  ShowMode();
  ShowFilter();
}

/// The button is the toolbar key at another place: the same command, open, closed and hidden with it.
void WindowExtras::ConnectButtons() {
  for (QPushButton* button : window_.findChildren<QPushButton*>()) {
    const QString key = button->property("presses").toString();
    auto* action = key.isEmpty() ? nullptr : window_.findChild<QAction*>(key);
    if (!action) continue;
    button->setAutoDefault(false);
    const auto follow = [button, action] {
      button->setEnabled(action->isEnabled());
      button->setVisible(action->isVisible());
      button->setToolTip(action->toolTip());
    };
    follow();
    QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
    QObject::connect(action, &QAction::changed, button, follow);
  }
}

void WindowExtras::AddMenus() {
  const QStringList words = window_.menuBar()->property("behindMenus").toString().split(' ', Qt::SkipEmptyParts);
  for (qsizetype i = 0; i + 1 < words.size(); i += 2) {
    auto* menu = window_.menuBar()->findChild<QMenu*>(words[i]);
    auto* action = window_.findChild<QAction*>(words[i + 1], Qt::FindDirectChildrenOnly);
    if (!menu || !action) continue;
    menu->addSeparator();
    menu->addAction(action);
  }
  AddExport();
  AddHelpMenu(window_);
}

/// The list that is to be seen, as a file.
void WindowExtras::AddExport() {
  auto* menu = window_.menuBar()->findChild<QMenu*>("mnuFile");
  if (!menu) return;
  menu->addSeparator();
  QAction* action = menu->addAction(QObject::tr("Export List..."), &window_, [this] {
    if (ListView* list = ShownListView()) list->ExportList();
  });
  action->setObjectName("exportListAction");
  QObject::connect(menu, &QMenu::aboutToShow, action, [this, action] {
    const ListView* list = ShownListView();
    action->setEnabled(list && list->CanExport());
  });
}

ListView* WindowExtras::ShownListView() const {
  const platform::Grid* shown = ShownList();
  for (ListView* list : window_.findChildren<ListView*>())
    if (shown && list->Model() == shown) return list;
  return nullptr;
}

void WindowExtras::ShowMode() {
  if (!cards_) return;
  const QString mode = ToShown(cards_->CardMode());
  if (badge_) {
    badge_->setText(mode);
    badge_->setVisible(!mode.isEmpty());
  }
  if (place_ && !mode.isEmpty()) place_->clear();
  const bool another = cards_->AddsOwner();
  for (QLabel* label : window_.findChildren<QLabel*>())
    if (label->property("ofOwner").toBool()) label->setHidden(another);
}

void WindowExtras::ShowFilter() {
  if (filterBadge_) filterBadge_->Show(ToShown(filtered_->FilterText()));
}

void WindowExtras::Changed(const platform::Control& control, Aspect aspect) {
  const bool tabs = dynamic_cast<const platform::TabControl*>(&control) != nullptr;
  const bool toolbar = dynamic_cast<const platform::Toolbar*>(&control) != nullptr;
  const bool list = dynamic_cast<const platform::Grid*>(&control) != nullptr;
  if (tabs || toolbar) ShowMode();
  if (toolbar || (list && (aspect == Aspect::List || aspect == Aspect::Text))) ShowFilter();
  if (!tabs && !list) return;
  if (aspect != Aspect::Tab && aspect != Aspect::CurrentRow && aspect != Aspect::List && aspect != Aspect::RowContent) return;
  placeIsOld_ = true;
  services_.WakeIdle();
}

platform::Grid* WindowExtras::ShownList() const {
  for (platform::Control* control : form_.Controls()) {
    auto* grid = dynamic_cast<platform::Grid*>(control);
    if (grid && grid->Data() && grid->EffectivelyVisible()) return grid;
  }
  return nullptr;
}

/// "row 12 of 5,000"; nothing until the rows are counted.
QString WindowExtras::Place() const {
  const platform::Grid* grid = cards_ && cards_->CardMode().empty() ? ShownList() : nullptr;
  platform::RowWindow* rows = grid && grid->Data()->OnRecord() ? grid->Data()->Window() : nullptr;
  if (!rows || !rows->CountIsExact()) return {};
  const auto ordinal = rows->OrdinalOf(grid->CurrentBookmark());
  if (!ordinal) return {};
  const QLocale english(QLocale::English, QLocale::UnitedStates);
  return QObject::tr("row %1 of %2").arg(english.toString(qlonglong{*ordinal} + 1), english.toString(qlonglong{rows->Count()}));
}

void WindowExtras::Settled() {
  ShowFilter();
  if (!placeIsOld_ || !place_) return;
  placeIsOld_ = false;
  QString text;
  Safely(form_.Host(), [&] { text = Place(); });
  place_->setText(text);
}

}  // namespace desktop
