#include "desktop/desktop.h"
#include "library/windows.h"

namespace library {

std::unique_ptr<platform::FrontEnd> MakeWindows(const std::string& settingsFolder, bool mayBeOffscreen) {
  desktop::DesktopOptions options;
  options.settingsFolder = settingsFolder;
  options.offscreenIfNoDisplay = mayBeOffscreen;
  return desktop::MakeFrontEnd(options);
}

std::unique_ptr<platform::UserHands> MakeWindowHands(platform::FrontEnd& windows) { return desktop::MakeHands(windows); }

void KeepSettingsOf(platform::FrontEnd& frontEnd, const std::string& user) { desktop::KeepSettingsOf(frontEnd, user); }

bool CanShow(const platform::FrontEnd& frontEnd) { return desktop::CanShow(frontEnd); }

}  // namespace library
