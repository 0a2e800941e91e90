#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QTimer>
#include <QToolBar>

#include "desktop/binding/binding.h"
#include "platform/controls/toolbar.h"

namespace desktop {

/// The toolbar: one action per key. A screen turns it off for the time of each click; it greys only when that lasts.
class ToolbarBinding final : public TypedBinding<platform::Toolbar, QToolBar> {
 public:
  ToolbarBinding(platform::Toolbar& control, QToolBar* widget);
  void Show(platform::Aspect aspect) override;
  void Drop() override;

 private:
  bool IsOpen() const;
  QTimer greying_;
};

/// One key; its action bears the key's name.
class ToolbarButtonBinding final : public Binding {
 public:
  ToolbarButtonBinding(QMainWindow& window, platform::ToolbarButton& key);
  void Show(platform::Aspect aspect) override;
  QAction* Action() const { return action_; }

 private:
  platform::ToolbarButton& key_;
  QAction* action_ = nullptr;
};

class MenuBinding final : public Binding {
 public:
  MenuBinding(QMainWindow& window, platform::Menu& menu);
  void Show(platform::Aspect aspect) override;
  QMenu* Shown() const { return menu_; }

 private:
  platform::Menu& model_;
  QMenu* menu_;
};

/// One item of a menu; its action bears the item's name and shows the item's shortcut.
class MenuItemBinding final : public Binding {
 public:
  MenuItemBinding(QMainWindow& window, platform::MenuItem& item);
  void Show(platform::Aspect aspect) override;
  QAction* Action() const { return action_; }

 private:
  platform::MenuItem& item_;
  QAction* action_;
};

}  // namespace desktop
