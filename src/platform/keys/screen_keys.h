#pragma once

#include <string_view>

#include "platform/controls/form/form.h"

namespace platform {

/// A key that the control with the keyboard (nullptr: none has it) has no use for, as the screen takes it: from tab to tab, to the
/// search box of a list and from there to the list, a command. False when it means nothing here.
bool PressKeyOnScreen(Form& form, const Control* focus, std::string_view key);

}  // namespace platform
