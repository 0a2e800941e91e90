#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/form/control.h"

namespace platform {

class Toolbar;

/// A control whose click, or key, starts a command of the screen. A screen may refuse the user's act while the command has no
/// sense: nothing happens then, no cell is taken, and the screen says why. What code starts is never refused.
class CommandControl : public Control {
 public:
  using Control::Control;
  /// Why the user's act would be refused now, in words for him; "" when it would not.
  std::function<std::string()> Refusal;
  /// A user's act was refused with these words, or goes through ("": what was said before is out of date).
  Event<const std::string&> Told;
  bool Refuses() const { return Refusal && !Refusal().empty(); }

 protected:
  /// The user's act, unless it is refused.
  void GuardedCommand(const std::function<void()>& body);
};

/// One key of a toolbar, a control under the key's name ("tb_Find"). It never takes the focus.
class ToolbarButton final : public CommandControl {
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
  /// Whether clicks are served at all; a toolbar whose screen serves none looks closed, its keys keep their own states.
  std::function<bool()> Ready;
  bool IsReady() const { return !Ready || Ready(); }
  bool ReopensAfterFailure() const override { return true; }
  /// What Ready says may have changed.
  void ReadyChanged() { Changed(Aspect::Enabled); }

 private:
  std::vector<Key> keys_;
  std::vector<std::unique_ptr<ToolbarButton>> buttons_;
};

/// One item of a menu, a control under the item's name. It never takes the focus.
class MenuItem final : public CommandControl {
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
