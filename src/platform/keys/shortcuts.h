#pragma once

#include <string_view>

#include "platform/controls/form/form.h"
#include "platform/controls/form/shortcut.h"
#include "platform/controls/toolbar.h"

/// What the shortcuts of a screen (Form::Shortcuts) say of its commands.
namespace platform {

/// The key that the screen gives this menu item or toolbar key; "" if it has none.
std::string_view ShortcutKeyOf(const Control& control);
/// The key that starts a toolbar key's command, its own or that of the menu item for the same command; "" if there is none.
std::string_view ShortcutKeyFor(const ToolbarButton& button);

/// The command that a key starts on that screen now; nullptr if the key has none, or if it is closed at the moment. One that
/// would be refused is found all the same, so that the key says why as the menu does.
Control* ShortcutTarget(const Form& form, std::string_view key);

}  // namespace platform
