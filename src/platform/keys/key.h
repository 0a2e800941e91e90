#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// A key of the keyboard, and what is held down with it.
struct Key {
  bool control = false;
  bool alt = false;
  bool shift = false;
  std::string plain;  ///< "Enter", "F5", "Plus", or the character that it types
};

/// "Ctrl+Alt+Shift+Enter": the modifiers in this order. So keys are named in tables and wherever one is pressed.
std::string NameOf(const Key& key);
/// The key of such a name, whatever the order of its modifiers and the case of its letters. Nothing for what no keyboard has.
std::optional<Key> KeyNamed(std::string_view name);

/// The character that a key of that name types: "a" of "a", " " of "Space", "+" of "Plus", "A" of "Shift+a"; "" when it types none.
std::string TypedBy(std::string_view key);
/// The name without Shift, for keys that mean the same with it.
std::string WithoutShift(std::string_view key);

}  // namespace platform
