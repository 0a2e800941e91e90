#include "desktop/binding/bar_bindings.h"

#include <QMenuBar>
#include <QToolButton>

#include "desktop/look/icons.h"
#include "platform/keys/shortcuts.h"

namespace desktop {

using platform::Aspect;

namespace {

constexpr int kGreyAfterMs = 200;
constexpr int kIconSize = 24;

void ShowAction(QAction& action, const platform::Control& control, Aspect aspect) {
  if (aspect == Aspect::Enabled) {
    action.setEnabled(control.Enabled());
  } else if (aspect == Aspect::Visible) {
    action.setVisible(control.Visible());
  }
}

/// As the menu shows a key: "Ctrl+Plus" is "Ctrl++".
QString ShownKey(std::string_view key) {
  QString text = ToShown(key);
  return text.replace(QStringLiteral("Plus"), QStringLiteral("+"))
      .replace(QStringLiteral("Minus"), QStringLiteral("-"))
      .replace(QStringLiteral("Escape"), QStringLiteral("Esc"));
}

/// A key looks the same on every screen, unless a screen has a drawing of its own for it.
QIcon DrawingOf(const platform::ToolbarButton& key) {
  const QString name = ToShown(key.Name());
  const QIcon own = DrawnIcon(ToShown(key.Owner().Name()) + "/" + name);
  return own.isNull() ? DrawnIcon(name) : own;
}

/// Whether the layout wants a line before that item.
bool LineBefore(const QMenuBar& bar, const platform::MenuItem& item) {
  return bar.property("linesBefore").toString().split(' ').contains(ToShown(item.Name()));
}

}  // namespace

ToolbarBinding::ToolbarBinding(platform::Toolbar& control, QToolBar* widget) : TypedBinding(control, widget) {
  widget->setIconSize(QSize(kIconSize, kIconSize));
  widget->setMovable(false);
  widget->setContextMenuPolicy(Qt::PreventContextMenu);
  widget->setAccessibleName(QObject::tr("Toolbar"));
  greying_.setSingleShot(true);
  greying_.setInterval(kGreyAfterMs);
  connect(&greying_, &QTimer::timeout, this, [this] {
    if (!Dropped()) shown().setEnabled(IsOpen());
  });
}

void ToolbarBinding::Show(Aspect aspect) {
  if (aspect != Aspect::Enabled) {
    if (aspect == Aspect::Visible) shown().setVisible(control().Visible());
    return;
  }
  if (IsOpen()) {
    greying_.stop();
    shown().setEnabled(true);
  } else if (!greying_.isActive()) {
    greying_.start();
  }
}

bool ToolbarBinding::IsOpen() const { return control().Enabled() && control().IsReady(); }

void ToolbarBinding::Drop() {
  greying_.stop();
  TypedBinding::Drop();
}

ToolbarButtonBinding::ToolbarButtonBinding(QMainWindow& window, platform::ToolbarButton& key) : Binding(key, nullptr), key_(key) {
  auto* bar = window.findChild<QToolBar*>(WidgetName(key.Bar()));
  if (!bar) return;
  for (const auto& design : key.Bar().Keys())
    if (design.key == key.Name() && design.group && !bar->actions().isEmpty()) bar->addSeparator();
  action_ = bar->addAction(DrawingOf(key), ToShown(key.ToolTipText()));
  action_->setObjectName(WidgetName(key));
  if (auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action_))) {
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(ToShown(key.ToolTipText()));
  }
  connect(action_, &QAction::triggered, this, [this] {
    Act([this] {
      if (key_.OpenToUser()) key_.UserClick();
    });
  });
}

void ToolbarButtonBinding::Show(Aspect aspect) {
  if (!action_) return;
  if (aspect == Aspect::ToolTip) {
    const std::string_view key = platform::ShortcutKeyFor(key_);
    action_->setToolTip(ToShown(key_.ToolTipText()) + (key.empty() ? QString() : " (" + ShownKey(key) + ")"));
  } else {
    ShowAction(*action_, key_, aspect);
  }
}

MenuBinding::MenuBinding(QMainWindow& window, platform::Menu& menu)
    : Binding(menu, nullptr), model_(menu), menu_(window.menuBar()->addMenu(ToShown(menu.Caption()))) {
  menu_->setObjectName(WidgetName(menu));
  for (const platform::MenuItem* item : menu.Items()) {
    auto* action = window.findChild<QAction*>(WidgetName(*item), Qt::FindDirectChildrenOnly);
    if (!action) continue;
    if (LineBefore(*window.menuBar(), *item)) menu_->addSeparator();
    menu_->addAction(action);
  }
}

void MenuBinding::Show(Aspect aspect) { ShowAction(*menu_->menuAction(), model_, aspect); }

MenuItemBinding::MenuItemBinding(QMainWindow& window, platform::MenuItem& item)
    : Binding(item, nullptr), item_(item), action_(NewChild<QAction>(&window)) {
  action_->setObjectName(WidgetName(item));
  action_->setMenuRole(QAction::NoRole);
  connect(action_, &QAction::triggered, this, [this] {
    Act([this] {
      if (item_.OpenToUser()) item_.UserClick();
    });
  });
}

void MenuItemBinding::Show(Aspect aspect) {
  if (aspect == Aspect::Text) {
    const std::string_view key = platform::ShortcutKeyOf(item_);
    action_->setText(ToShown(item_.Caption()) + (key.empty() ? QString() : "\t" + ShownKey(key)));
  } else {
    ShowAction(*action_, item_, aspect);
  }
}

}  // namespace desktop
