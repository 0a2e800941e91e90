#pragma once

#include <string>
#include <string_view>

#include "platform/controls/form/form.h"
#include "platform/controls/toolbar.h"

namespace platform {

/// A key of the keyboard for a command of a screen. The menu shows it beside the item.
struct Shortcut {
  std::string_view control;  ///< the menu item, or a toolbar key where the screen has no menu for it
  std::string_view key;      ///< "F3", "Ctrl+Enter": modifiers in the order Ctrl, Alt, Shift
  std::string_view guard;    ///< toolbar key that must be open too; "" for none
};

/// Every shortcut of every screen. A key belongs to the first row whose control the screen has. The menu's items stay open
/// while a record is edited; a key that is pressed by mistake should not run what the toolbar refuses, so most of them
/// are guarded by the toolbar key of the same command (Escape cancels only while there is something to cancel).
inline constexpr Shortcut kShortcuts[] = {
    {"miPrint", "Ctrl+P", "tb_Print"},
    {"miPreview", "Ctrl+Shift+P", "tb_Preview"},
    {"miExit", "Ctrl+Q", ""},
    {"miFind", "F3", "tb_Find"},
    {"miSelect", "Ctrl+Enter", "tb_Select"},
    {"miAddRec", "Ctrl+N", "tb_AddRec"},
    {"miEditRec", "F2", "tb_EditRec"},
    {"miDeleteRec", "F8", "tb_DeleteRec"},
    {"miSaveRec", "Ctrl+S", "tb_SaveRec"},
    {"miCancelRec", "Escape", "tb_CancelRec"},
    {"miRefresh", "F5", "tb_Refresh"},
    {"miMapCustomer", "F7", "tb_MapCustomer"},
    {"miMapAll", "Ctrl+F7", "tb_MapAll"},
    {"miQueries", "F4", "tb_Queries"},
    {"miStatistics", "F6", "tb_Statistics"},
    {"miReports", "F9", "tb_Reports"},
    {"miRelationships", "F11", "tb_Refresh"},
    {"miSelectAll", "Ctrl+Shift+A", "tb_SelectAll"},
    {"miUnselectAll", "Ctrl+Shift+U", "tb_UnselectAll"},
    {"miUnassignSelected", "Ctrl+Minus", "tb_UnassignSelected"},
    {"miAssignSelected", "Ctrl+Plus", "tb_AssignSelected"},
    // Screens with a toolbar and no menu.
    {"tb_Search", "F3", ""},
    {"tb_Find", "F3", ""},
    {"tb_Print", "Ctrl+P", ""},
    {"tb_Preview", "Ctrl+Shift+P", ""},
    {"tb_AddRec", "Ctrl+N", ""},
    {"tb_EditRec", "F2", ""},
    {"tb_DeleteRec", "F8", ""},
    {"tb_SaveRec", "Ctrl+S", ""},
    {"tb_CancelRec", "Escape", ""},
    {"tb_Refresh", "F5", ""},
};

/// Moves through the tabs of the top screen, without a menu item: the next (previous) tab that is open.
inline constexpr std::string_view kNextTabKey = "Ctrl+Tab";
inline constexpr std::string_view kPreviousTabKey = "Ctrl+Shift+Tab";

/// The key that the screen gives this menu item or toolbar key; "" if it has none.
inline std::string_view ShortcutKeyOf(const Control& control) {
  for (const Shortcut& shortcut : kShortcuts) {
    if (shortcut.control != control.Name()) continue;
    for (const Shortcut& first : kShortcuts) {
      if (first.key == shortcut.key && control.Owner().Find(first.control) != nullptr) {
        return first.control == shortcut.control ? shortcut.key : std::string_view{};
      }
    }
  }
  return {};
}

/// The key that starts a toolbar key's command, its own or that of the menu item for the same command; "" if there is none.
inline std::string_view ShortcutKeyFor(const ToolbarButton& button) {
  for (const Shortcut& shortcut : kShortcuts) {
    const bool same = shortcut.guard == button.Name() || shortcut.control == button.Name();
    const Control* command = same ? button.Owner().Find(shortcut.control) : nullptr;
    if (command != nullptr) return ShortcutKeyOf(*command);
  }
  return {};
}

inline bool IsOpenToUser(const Control* control) {
  return control != nullptr && control->EffectivelyVisible() && control->EffectivelyEnabled();
}

/// Whether the screen would answer the user's act on that control with words alone.
inline bool WouldRefuse(const Control* control) {
  const auto* command = dynamic_cast<const CommandControl*>(control);
  return command != nullptr && command->Refuses();
}

/// The command that a key starts on that screen now; nullptr if the key has none, or if it is closed at the moment. One that
/// would be refused is found all the same, so that the key says why as the menu does.
inline Control* ShortcutTarget(const Form& form, std::string_view key) {
  for (const Shortcut& shortcut : kShortcuts) {
    if (shortcut.key != key) continue;
    Control* target = form.Find(shortcut.control);
    if (target == nullptr) continue;
    const bool guarded = !shortcut.guard.empty() && form.Find(shortcut.guard) != nullptr && !IsOpenToUser(form.Find(shortcut.guard));
    return IsOpenToUser(target) && (!guarded || WouldRefuse(target)) ? target : nullptr;
  }
  return nullptr;
}

}  // namespace platform
