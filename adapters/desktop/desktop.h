#pragma once

#include <memory>
#include <string>

#include "platform/host/front_end.h"
#include "platform/host/user_hands.h"

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
/// called, used and destroyed on the host's main thread (error 5 with a description otherwise, or when there is no display that
/// can be opened). A host's own application object must outlive the front end; when it does not, CanShow tells.
std::unique_ptr<platform::FrontEnd> MakeFrontEnd(const DesktopOptions& options);

/// From here on the settings of that user are kept, in the folder of the options. For front ends from MakeFrontEnd, while no
/// screen is loaded; others are left alone.
void KeepSettingsOf(platform::FrontEnd& frontEnd, const std::string& user);

/// How a printer's pages are moved, in inches, and made larger from their left upper corner.
struct PrinterAlignment {
  double right = 0;
  double down = 0;
  double scale = 1;
};

/// What the present user's settings keep of a printer; that of front ends not from MakeFrontEnd is nothing.
PrinterAlignment AlignmentOf(platform::FrontEnd& frontEnd, const std::string& printer);
void KeepAlignment(platform::FrontEnd& frontEnd, const std::string& printer, const PrinterAlignment& alignment);

/// Whether the application object with which the front end was made is there still. True for others than MakeFrontEnd's.
bool CanShow(const platform::FrontEnd& frontEnd);

/// Hands that send real key and mouse events to the windows of `frontEnd`, which must come from MakeFrontEnd and outlive them.
std::unique_ptr<platform::UserHands> MakeHands(platform::FrontEnd& frontEnd);

}  // namespace desktop
