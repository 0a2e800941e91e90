#pragma once

#include <string_view>

namespace platform {

/// A key of the keyboard for a command of a screen. The menu shows it beside the item. Where a key stands for several commands, it
/// starts the first of them that is open.
struct Shortcut {
  std::string_view control;  ///< the menu item, or a toolbar key or a button where the screen has no menu for it
  std::string_view key;      ///< "F3", "Ctrl+Enter": modifiers in the order Ctrl, Alt, Shift
  std::string_view guard;    ///< toolbar key that must be open too; "" for none
};

}  // namespace platform
