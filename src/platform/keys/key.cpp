#include "platform/keys/key.h"

#include <array>

#include "platform/values/convert.h"
#include "platform/values/text.h"

namespace platform {
namespace {

constexpr std::array<std::string_view, 30> kNamedKeys = {"Enter",  "Tab",    "Escape",   "Up",        "Down",   "Left",  "Right", "Home",
                                                         "End",    "PageUp", "PageDown", "Backspace", "Delete", "Space", "Plus",  "Minus",
                                                         "Insert", "F1",     "F2",       "F3",        "F4",     "F5",    "F6",    "F7",
                                                         "F8",     "F9",     "F10",      "F11",       "F12",    "Comma"};
constexpr std::string_view kShift = "Shift+";

/// Takes the modifier off the front of a name, if it stands there.
bool TakeOff(std::string_view& name, std::string_view modifier) {
  if (name.size() <= modifier.size() || !EqualsNoCase(name.substr(0, modifier.size()), modifier)) return false;
  name.remove_prefix(modifier.size());
  return true;
}

}  // namespace

std::string NameOf(const Key& key) {
  std::string name;
  if (key.control) name += "Ctrl+";
  if (key.alt) name += "Alt+";
  if (key.shift) name += kShift;
  return name + key.plain;
}

std::optional<Key> KeyNamed(std::string_view name) {
  Key key;
  for (bool more = true; more;) {
    more = false;
    if (TakeOff(name, "Ctrl+")) key.control = more = true;
    if (TakeOff(name, "Alt+")) key.alt = more = true;
    if (TakeOff(name, kShift)) key.shift = more = true;
  }
  for (const std::string_view named : kNamedKeys) {
    if (!EqualsNoCase(named, name)) continue;
    key.plain = named;
    return key;
  }
  if (CharacterCount(name) != 1) return {};
  key.plain = key.control || key.alt ? UCase(name) : std::string(name);
  return key;
}

std::string TypedBy(std::string_view key) {
  if (key == "Space") return " ";
  if (key == "Plus") return "+";
  if (key == "Minus") return "-";
  if (key == "Comma") return ",";
  const bool shift = key.starts_with(kShift);
  if (shift) key.remove_prefix(kShift.size());
  if (CharacterCount(key) != 1) return "";
  return shift ? UCase(key) : std::string(key);
}

std::string WithoutShift(std::string_view key) {
  std::string name(key);
  const auto at = name.find(kShift);
  return at == std::string::npos ? name : name.erase(at, kShift.size());
}

}  // namespace platform
