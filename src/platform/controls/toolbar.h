#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"

namespace platform {

class Toolbar;

/// One key of a toolbar, a control under the key's name ("tb_Find"). It never takes the focus.
class ToolbarButton final : public Control {
 public:
  ToolbarButton(Form& form, Toolbar& toolbar, std::string key, std::string toolTip);
  void UserClick();
  Toolbar& Bar() const noexcept { return toolbar_; }

 private:
  Toolbar& toolbar_;
};

/// A toolbar: its keys in button order. A click fires ButtonClick with the key.
class Toolbar final : public Control {
 public:
  struct Key {
    std::string key;
    std::string toolTip;
    bool group = false;  ///< a gap stands before it
  };
  Toolbar(Form& form, std::string name, std::vector<Key> keys);
  ToolbarButton& Button(std::string_view key) const;
  const std::vector<std::unique_ptr<ToolbarButton>>& Buttons() const noexcept { return buttons_; }
  const std::vector<Key>& Keys() const noexcept { return keys_; }
  Event<const std::string&> ButtonClick;

 private:
  std::vector<Key> keys_;
  std::vector<std::unique_ptr<ToolbarButton>> buttons_;
};

/// One item of a menu, a control under the item's name. It never takes the focus.
class MenuItem final : public Control {
 public:
  MenuItem(Form& form, std::string name, std::string caption);
  const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption);
  Event<> Click;
  void UserClick();

 private:
  std::string caption_;
};

/// A menu of the menu bar with its items in order.
class Menu final : public Control {
 public:
  Menu(Form& form, std::string name, std::string caption, std::vector<MenuItem*> items);
  const std::string& Caption() const noexcept { return caption_; }
  const std::vector<MenuItem*>& Items() const noexcept { return items_; }

 private:
  std::string caption_;
  std::vector<MenuItem*> items_;
};

}  // namespace platform
