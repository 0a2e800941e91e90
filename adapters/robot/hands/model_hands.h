#pragma once

#include <memory>

#include "platform/host/user_hands.h"

namespace robot {

/// Hands that act on the control models, without any window.
std::unique_ptr<platform::UserHands> MakeModelHands();

/// Presses a key in a control as a window would take it (platform/keys). Raises ActionFailed for a key name that no keyboard has.
void PressKey(platform::Control& control, std::string_view key);

/// A screen as text: its caption, and each control to be seen with its value, one a line.
std::string ScreenAsText(const platform::Form& form);

}  // namespace robot
