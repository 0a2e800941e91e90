#pragma once

#include <memory>
#include <string>

#include "platform/front_end.h"
#include "platform/user_hands.h"

/// The screens as windows. This header is all that a host's wiring needs; it names no toolkit.
namespace desktop {

/// How the windows are set up.
struct DesktopOptions {
  std::string settingsFolder;         ///< column widths, window sizes; "" keeps nothing
  std::string user;                   ///< whose settings
  bool offscreenIfNoDisplay = false;  ///< without a display draws into memory instead of failing
  std::string colorScheme;            ///< "light", "dark", or "" to follow the environment and the system
};

/// The front end that shows every screen as a window. Makes the toolkit's application object when the host has none; must be
/// called, used and destroyed on the host's main thread (error 5 with a description otherwise, or when there is no display).
std::unique_ptr<platform::FrontEnd> MakeFrontEnd(const DesktopOptions& options);

/// Hands that send real key and mouse events to the windows of `frontEnd`, which must come from MakeFrontEnd and outlive them.
std::unique_ptr<platform::UserHands> MakeHands(platform::FrontEnd& frontEnd);

}  // namespace desktop
