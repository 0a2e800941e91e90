#include "platform/keys/shortcuts.h"

namespace platform {
namespace {

/// Whether the screen would answer the user's act on that control with words alone.
bool WouldRefuse(const Control& control) {
  const auto* command = dynamic_cast<const CommandControl*>(&control);
  return command != nullptr && command->Refuses();
}

}  // namespace

std::string_view ShortcutKeyOf(const Control& control) {
  for (const Shortcut& shortcut : control.Owner().Shortcuts())
    if (shortcut.control == control.Name()) return shortcut.key;
  return {};
}

std::string_view ShortcutKeyFor(const ToolbarButton& button) {
  for (const Shortcut& shortcut : button.Owner().Shortcuts())
    if (shortcut.guard == button.Name() || shortcut.control == button.Name()) return shortcut.key;
  return {};
}

Control* ShortcutTarget(const Form& form, std::string_view key) {
  for (const Shortcut& shortcut : form.Shortcuts()) {
    if (shortcut.key != key) continue;
    Control* target = form.Find(shortcut.control);
    if (target == nullptr || !target->OpenToUser()) continue;
    const Control* guard = shortcut.guard.empty() ? nullptr : form.Find(shortcut.guard);
    const bool closed = guard != nullptr && !guard->OpenToUser();
    if (!closed || WouldRefuse(*target)) return target;
  }
  return nullptr;
}

}  // namespace platform
